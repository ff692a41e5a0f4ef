#include "PlacementPanel.h"

#include "AttributeHints.h"
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/UpDownText.h>

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace CorvexMaterial {

namespace {

using enum Attribute;

constexpr int kFieldColumns = 3;
constexpr int kNarrowestField = 52;
constexpr double kTurnStep = 5.0;
constexpr double kLengthStep = 0.1;

std::size_t FieldIndex(Attribute attribute)
{
    return static_cast<std::size_t>(attribute) - static_cast<std::size_t>(PlacementPanel::kFirst);
}

Attribute FieldAttribute(std::size_t field)
{
    return static_cast<Attribute>(static_cast<std::size_t>(PlacementPanel::kFirst) + field);
}

bool IsAtRest(Attribute attribute, const std::string& text)
{
    return SingleFromText(text) == SingleFromText(std::string(FactoryText(attribute)));
}

}  // namespace

/// Fields beside each other, from the first attribute to the last.
struct PlacementPanel::Line {
    Attribute first;
    Attribute last;
    QString label;
    QString tip;
};

PlacementPanel::PlacementPanel(QWidget* parent)
    : QWidget(parent), m_handles(new QPushButton(tr("Placement"), this)),
      m_reset(new QPushButton(tr("Reset"), this)), m_numbers(new QWidget(this))
{
    setProperty("helpTopic", QStringLiteral("placement"));
    m_handles->setObjectName(QStringLiteral("cmdPlacement"));
    m_handles->setCheckable(true);
    m_handles->setAutoDefault(false);
    m_handles->setToolTip(
        tr("Move, scale and turn the texture with handles in the view, or with the numbers here"));
    m_reset->setObjectName(QStringLiteral("cmdPlacementReset"));
    m_reset->setAutoDefault(false);
    m_reset->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_reset->setToolTip(tr("Put the texture back to where the wrap has it by itself"));
    auto* grid = new QGridLayout(m_numbers);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(4);
    grid->setVerticalSpacing(4);
    AddLine(*grid, {TextureRotation, TextureRotation, tr("Rotation"),
                    tr("Turns the texture in its plane, degrees counter-clockwise")});
    AddLine(*grid, {TextureWidth, TextureHeight, tr("Size"),
                    tr("Width and height of one tile in units of the scene; 0 leaves it to the "
                       "wrap, one of the two makes it square")});
    AddLine(*grid, {ProjectionX, ProjectionZ, tr("Center"),
                    tr("Moves the wrap along x, y and z, in units of the scene")});
    AddLine(*grid, {ProjectionTurnX, ProjectionTurnZ, tr("Turn"),
                    tr("Turns the wrap about x, y and z, in degrees")});
    for (int column = 1; column <= kFieldColumns; ++column) {
        grid->setColumnStretch(column, 1);
    }
    grid->addWidget(m_reset, 0, kFieldColumns);
    setTabOrder(m_fields.back(), m_reset);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(m_handles);
    column->addWidget(m_numbers);
    connect(m_handles, &QPushButton::toggled, this, &PlacementPanel::Fold);
    connect(m_handles, &QPushButton::clicked, this, &PlacementPanel::HandlesToggled);
    connect(m_reset, &QPushButton::clicked, this, &PlacementPanel::Reset);
    Fold();
}

void PlacementPanel::AddLine(QGridLayout& grid, const Line& line)
{
    const int row = grid.count() == 0 ? 0 : grid.rowCount();
    auto* label = new QLabel(line.label, m_numbers);
    label->setToolTip(line.tip);
    grid.addWidget(label, row, 0);
    for (std::size_t i = FieldIndex(line.first); i <= FieldIndex(line.last); ++i) {
        const Attribute attribute = FieldAttribute(i);
        const AttributeRow& schema = RowOf(attribute);
        auto* field = new UpDownText(m_numbers);
        field->setObjectName(QStringLiteral("txt") + QString::fromUtf8(schema.currentKey).mid(8));
        field->setAccessibleName(QCoreApplication::translate("Attribute", schema.label));
        field->setToolTip(line.tip);
        field->setMinimumWidth(kNarrowestField);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        field->SetNumbers({schema.range.least, schema.range.most,
                           schema.unit == AttributeUnit::Degrees ? kTurnStep : kLengthStep, 0.0F});
        m_fields[i] = field;
        Show(attribute, std::string(schema.factoryText));
        if (attribute == line.first) {
            label->setBuddy(field);
        }
        grid.addWidget(field, row, static_cast<int>(i - FieldIndex(line.first)) + 1);
        connect(field, &UpDownText::Confirmed, this, [this, attribute] { Take(attribute); });
    }
}

bool PlacementPanel::Has(Attribute attribute)
{
    return FieldIndex(attribute) < kFieldCount;
}

const std::string& PlacementPanel::Text(Attribute attribute) const
{
    return m_texts.at(FieldIndex(attribute));
}

void PlacementPanel::Show(Attribute attribute, const std::string& text)
{
    const std::size_t i = FieldIndex(attribute);
    m_texts.at(i) = text;
    m_fields.at(i)->ShowText(QString::fromStdString(text));
    Fold();
}

QWidget* PlacementPanel::FieldOf(Attribute attribute) const
{
    return m_fields.at(FieldIndex(attribute));
}

void PlacementPanel::ShowHandles(bool shown)
{
    m_handles->setChecked(shown);
}

void PlacementPanel::Take(Attribute attribute)
{
    const auto number = SingleFromText(m_fields[FieldIndex(attribute)]->text().toStdString());
    if (!number) {
        return;  // marked by the field
    }
    const NumberRange& range = RowOf(attribute).range;
    Show(attribute, TextOfSingle(std::clamp(*number, static_cast<float>(range.least),
                                            static_cast<float>(range.most))));
    Q_EMIT Edited({{attribute}});
}

void PlacementPanel::Reset()
{
    TouchedRows touched;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        touched.push_back({FieldAttribute(i)});
        Show(FieldAttribute(i), std::string(FactoryText(FieldAttribute(i))));
    }
    Q_EMIT Edited(touched);
}

// What is not at rest must not be out of sight.
void PlacementPanel::Fold()
{
    bool rests = true;
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        rests = rests && (m_texts[i].empty() || IsAtRest(FieldAttribute(i), m_texts[i]));
    }
    const bool isUsed = m_numbers->isAncestorOf(QApplication::focusWidget());
    m_numbers->setVisible(m_handles->isChecked() || !rests || isUsed);
    m_reset->setEnabled(!rests);
}

}  // namespace CorvexMaterial
