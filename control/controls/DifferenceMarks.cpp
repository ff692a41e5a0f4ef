#include "DifferenceMarks.h"

#include "DifferenceMark.h"
#include <CorvexMaterial/NamedColours.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Schema.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <map>

namespace CorvexMaterial {

namespace {

using Controls = DifferenceMarks::Controls;

constexpr qsizetype kLongestValue = 40;
constexpr qsizetype kMostLines = 8;

QColor ColourOf(std::int32_t packed)
{
    const ColourBytes bytes = BytesOf(packed);
    return {bytes.red, bytes.green, bytes.blue};
}

QString NameOfColour(Colour colour)
{
    const auto position = static_cast<std::size_t>(ColourListPosition(colour));
    return position < kNamedColours.size() ? QString::fromUtf8(kNamedColours[position].name)
                                           : ColourOf(colour).name();
}

/// Empty where the controls have no name for it.
QString NameOfPosition(std::int32_t position, const Controls& controls)
{
    for (QWidget* control : controls) {
        if (const auto* list = qobject_cast<const QComboBox*>(control)) {
            return list->itemText(position);
        }
    }
    const bool isInGroup = position >= 0 && position < static_cast<int>(controls.size());
    const auto* button =
        isInGroup
            ? qobject_cast<const QAbstractButton*>(controls[static_cast<std::size_t>(position)])
            : nullptr;
    return button != nullptr && button->isCheckable() ? button->accessibleName() : QString();
}

/// Of a value as a person reads it; empty for what tells him nothing.
class Text {
public:
    Text(const AttributeRow& row, const Controls& controls) : m_row(row), m_controls(controls) {}

    QString operator()(std::int32_t value) const
    {
        if (m_row.kind == AttributeKind::PackedColour) {
            return NameOfColour(value);
        }
        return m_row.kind == AttributeKind::ListPosition ? NameOfPosition(value, m_controls)
                                                         : QString::number(value);
    }
    QString operator()(float value) const { return QString::fromStdString(TextOfSingle(value)); }
    QString operator()(bool value) const
    {
        return value ? DifferenceMark::tr("on") : DifferenceMark::tr("off");
    }
    QString operator()(const std::string& value) const
    {
        const QString text = QString::fromStdString(value);
        const QString name =
            m_row.group == AttributeGroup::Textures ? QFileInfo(text).fileName() : text;
        return name.isEmpty() ? DifferenceMark::tr("none") : name.left(kLongestValue);
    }
    QString operator()(const std::vector<float>& values) const
    {
        QStringList texts;
        for (const float value : values) {
            texts.append((*this)(value));
        }
        return u'(' + texts.join(QStringLiteral(", ")) + u')';
    }

private:
    const AttributeRow& m_row;
    const Controls& m_controls;
};

QString TextOf(const DifferingRow& row, const Controls& controls)
{
    QStringList texts;
    for (const EditedValue& value : row.values) {
        if (const QString text = std::visit(Text(RowOf(row.attribute), controls), value);
            !text.isEmpty()) {
            texts.append(text);
        }
    }
    if (texts.isEmpty()) {
        return {};
    }
    const auto more = row.count - std::min(row.count, row.values.size());
    const QString listed = texts.join(QStringLiteral(", "));
    return more == 0 ? listed
                     : DifferenceMark::tr("%1 and %2 more")
                           .arg(listed)
                           .arg(static_cast<qulonglong>(more));
}

/// The rows that one control stands for.
struct Told {
    QStringList labels;
    QStringList values;
    std::vector<QColor> colours;

    void Add(const DifferingRow& row, const Controls& controls)
    {
        const AttributeRow& known = RowOf(row.attribute);
        labels.append(QCoreApplication::translate("Attribute", known.label));
        values.append(TextOf(row, controls));
        for (const EditedValue& value : row.values) {
            const auto* packed = std::get_if<std::int32_t>(&value);
            if (known.kind == AttributeKind::PackedColour && packed != nullptr) {
                colours.push_back(ColourOf(*packed));
            }
        }
    }
    [[nodiscard]] DifferenceMark::Values Whole() const
    {
        return {values.size() == 1 ? Line(MultipleValues(), values.front()) : Lines(), colours};
    }

private:
    static QString Line(const QString& label, const QString& value)
    {
        return value.isEmpty() ? label : DifferenceMark::tr("%1: %2").arg(label, value);
    }
    [[nodiscard]] QString Lines() const
    {
        QStringList lines{MultipleValues()};
        for (qsizetype i = 0; i < std::min(values.size(), kMostLines); ++i) {
            lines.append(Line(labels[i], values[i]));
        }
        if (values.size() > kMostLines) {
            lines.append(QStringLiteral("…"));
        }
        return lines.join(u'\n');
    }
};

TouchedRow Touched(const DifferingRow& row)
{
    return {row.attribute, row.element};
}

}  // namespace

void DifferenceMarks::Show(std::vector<DifferingRow> rows)
{
    m_rows = std::move(rows);
    ShowRows();
}

bool DifferenceMarks::Take(const std::vector<EditedRow>& edited)
{
    const auto isEdited = [&edited](const DifferingRow& row) {
        return std::ranges::any_of(edited, [&row](const EditedRow& other) {
            return other.attribute == row.attribute && other.element == row.element;
        });
    };
    const bool hasTaken = std::erase_if(m_rows, isEdited) > 0;
    if (hasTaken) {
        ShowRows();
    }
    return hasTaken;
}

void DifferenceMarks::TakeFromControlsOf(Attribute attribute)
{
    const Controls touched = m_controlsOf({attribute});
    if (std::erase_if(m_rows, [&](const DifferingRow& row) {
            return m_controlsOf(Touched(row)) == touched;
        }) > 0) {
        ShowRows();
    }
}

void DifferenceMarks::ShowRows()
{
    std::map<QWidget*, Told> told;
    for (const DifferingRow& row : m_rows) {
        const Controls controls = m_controlsOf(Touched(row));
        for (QWidget* control : controls) {
            told[control].Add(row, controls);
        }
    }
    for (const QPointer<QWidget>& control : m_marked) {
        if (control != nullptr && !told.contains(control)) {
            DifferenceMark::Of(*control).Hide();
        }
    }
    m_marked.clear();
    for (const auto& [control, rows] : told) {
        DifferenceMark::Of(*control).Show(rows.Whole());
        m_marked.emplace_back(control);
    }
}

}  // namespace CorvexMaterial
