#include "ValueText.h"

#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/NamedColours.h>
#include <CorvexMaterial/Schema.h>

#include <QColor>
#include <QComboBox>

namespace CorvexMaterial {

namespace {

using RowKind = AttributeKind;

/// Numbers are one kind, and so are flags.
RowKind Broad(RowKind kind)
{
    return kind == RowKind::Single   ? RowKind::WholeNumber
           : kind == RowKind::Switch ? RowKind::Flag
                                     : kind;
}

std::optional<Colour> ColourIn(const QString& text)
{
    for (const NamedColour& named : kNamedColours) {
        if (text.compare(QString::fromUtf8(named.name), Qt::CaseInsensitive) == 0) {
            return named.colour;
        }
    }
    const QColor color(text);
    if (!text.startsWith(u'#') || !color.isValid()) {
        return std::nullopt;
    }
    return MakeColour({static_cast<std::uint8_t>(color.red()),
                       static_cast<std::uint8_t>(color.green()),
                       static_cast<std::uint8_t>(color.blue())});
}

/// What `CanonicalText` understands of what a person writes.
std::string Plain(RowKind kind, const std::string& text)
{
    const QString typed = QString::fromStdString(text);
    if (kind == RowKind::PackedColour) {
        const auto colour = ColourIn(typed);
        return colour ? std::to_string(*colour) : std::string();
    }
    if (Broad(kind) == RowKind::Flag) {
        return typed.compare(u"on", Qt::CaseInsensitive) == 0    ? "1"
               : typed.compare(u"off", Qt::CaseInsensitive) == 0 ? "0"
                                                                 : text;
    }
    return text;
}

}  // namespace

QString ValueText(const TouchedRow& row, const CorvexDB::udtMaterial& record,
                  const std::vector<QWidget*>& controls)
{
    if (row.attribute == Attribute::CustomFields) {
        return QString::fromStdString(record.CustomFields.at(row.element));
    }
    const QString text = QString::fromStdString(TextIn(record, row.attribute).value_or(""));
    switch (Broad(RowOf(row.attribute).kind)) {
    case RowKind::PackedColour: {
        const ColourBytes bytes = BytesOf(record.Color);
        return QColor(bytes.red, bytes.green, bytes.blue).name();
    }
    case RowKind::Flag:
        return std::get<bool>(ValueOf(row.attribute, 0, record)) ? QStringLiteral("on")
                                                                 : QStringLiteral("off");
    case RowKind::ListPosition: {
        const auto* list =
            controls.empty() ? nullptr : qobject_cast<const QComboBox*>(controls.front());
        return list != nullptr ? list->currentText() : text;
    }
    default:
        return text;
    }
}

std::optional<EditedValue> ValueOfText(Attribute attribute, const std::string& text)
{
    if (attribute == Attribute::CustomFields) {
        return text;
    }
    const AttributeRow& row = RowOf(attribute);
    // A position means nothing without its list, and not every text is a file or a plug-in.
    const bool isTold = row.kind != RowKind::Text && row.kind != RowKind::ListPosition;
    const std::string plain = isTold ? Plain(row.kind, text) : std::string();
    const auto canonical = plain.empty() ? std::nullopt : CanonicalText(attribute, plain);
    CorvexDB::udtMaterial record;
    return canonical && SetText(record, attribute, *canonical)
               ? std::optional(ValueOf(attribute, 0, record))
               : std::nullopt;
}

bool IsOfTheSameKind(Attribute one, Attribute other)
{
    const AttributeRow& first = RowOf(one);
    const AttributeRow& second = RowOf(other);
    switch (Broad(first.kind)) {
    case RowKind::WholeNumber:
    case RowKind::Flag:
    case RowKind::PackedColour:
        return Broad(first.kind) == Broad(second.kind);
    default:
        return one == other;
    }
}

}  // namespace CorvexMaterial
