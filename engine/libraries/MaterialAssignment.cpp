#include "MaterialAssignment.h"

#include <CorvexMaterial/AlphaTests.h>
#include <CorvexMaterial/AttributeText.h>
#include <CorvexMaterial/NamedColours.h>
#include <CorvexMaterial/NumberText.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

using CorvexDB::udtMaterial;
using CorvexMaterial::Attribute;
using CorvexMaterial::AttributeGroup;
using CorvexMaterial::AttributeKind;
using CorvexMaterial::AttributeRow;

QString TextOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsNamed(const QString& text, std::string_view name)
{
    return text.compare(TextOf(name), Qt::CaseInsensitive) == 0;
}

std::optional<std::string> ColourIn(const QString& text)
{
    const auto& names = CorvexMaterial::kNamedColours;
    const auto row =
        std::ranges::find_if(names, [&](const auto& named) { return IsNamed(text, named.name); });
    if (row != names.end()) {
        return CorvexMaterial::TextOfWholeNumber(row->colour);
    }
    const QColor colour = text.startsWith(u'#') ? QColor(text) : QColor();
    if (!colour.isValid()) {
        return std::nullopt;
    }
    return CorvexMaterial::TextOfWholeNumber(
        CorvexMaterial::MakeColour({colour.red(), colour.green(), colour.blue()}));
}

std::optional<std::string> FlagIn(const QString& text)
{
    if (!IsNamed(text, "yes") && !IsNamed(text, "no")) {
        return std::nullopt;
    }
    return CorvexMaterial::TextOfFlag(IsNamed(text, "yes"));
}

std::optional<std::string> PositionIn(const AttributeRow& row, const QString& text)
{
    const auto& names = CorvexMaterial::kAlphaTestNames;
    const auto name =
        std::ranges::find_if(names, [&](std::string_view test) { return IsNamed(text, test); });
    if (row.attribute == Attribute::AlphaTest && name != names.end()) {
        return CorvexMaterial::TextOfWholeNumber(static_cast<std::int32_t>(name - names.begin()));
    }
    return CanonicalText(row.attribute, text.toStdString());
}

std::optional<std::string> SingleIn(const AttributeRow& row, const QString& text)
{
    const auto number = CorvexMaterial::SingleFromText(text.toStdString());
    const bool fits = number && (row.group != AttributeGroup::Raytrace ||
                                 (*number >= row.range.least && *number <= row.range.most));
    return fits ? std::optional(text.toStdString()) : std::nullopt;
}

/// The attribute's text for what a person types; nothing where it means none of its values.
std::optional<std::string> TypedText(const AttributeRow& row, const QString& text)
{
    bool isWhole = false;
    switch (row.kind) {
    case AttributeKind::PackedColour:
        return ColourIn(text);
    case AttributeKind::Flag:
    case AttributeKind::Switch:
        return FlagIn(text);
    case AttributeKind::ListPosition:
        return PositionIn(row, text);
    case AttributeKind::WholeNumber:
        static_cast<void>(text.toInt(&isWhole));
        return isWhole ? std::optional(text.toStdString()) : std::nullopt;
    case AttributeKind::Single:
        return SingleIn(row, text);
    default:
        // The files of the layers: relative to where they are named, for any folder from now on.
        return row.group == AttributeGroup::Textures && !text.isEmpty()
                   ? QFileInfo(text).absoluteFilePath().toStdString()
                   : text.toStdString();
    }
}

bool IsAssignable(const AttributeRow& row)
{
    return !row.word.empty() && row.kind != AttributeKind::Numbers &&
           row.kind != AttributeKind::Texts;
}

}  // namespace

QStringList MaterialKeys()
{
    QStringList keys;
    for (const AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (IsAssignable(row)) {
            keys << TextOf(row.word);
        }
    }
    return keys;
}

std::optional<QString> AssignMaterial(udtMaterial& material, const QString& assignment)
{
    const QString key = assignment.section(u'=', 0, 0).trimmed();
    const QString value = assignment.section(u'=', 1).trimmed();
    const AttributeRow* const row = CorvexMaterial::FindAttribute(key.toStdString());
    if (row == nullptr || !IsAssignable(*row)) {
        return QCoreApplication::translate("MaterialAssignment", "\"%1\" is none of %2.")
            .arg(key, MaterialKeys().join(QStringLiteral(", ")));
    }
    const auto text = TypedText(*row, value);
    if (!text || !SetText(material, row->attribute, *text)) {
        return QCoreApplication::translate("MaterialAssignment", "\"%1\" is no value for %2.")
            .arg(value, key);
    }
    return std::nullopt;
}

std::optional<QString> FirstWrongAssignment(const QStringList& assignments)
{
    udtMaterial material;
    for (const QString& assignment : assignments) {
        if (auto wrong = AssignMaterial(material, assignment)) {
            return wrong;
        }
    }
    return std::nullopt;
}

}  // namespace studio
