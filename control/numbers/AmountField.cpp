#include "AmountField.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

NumberRules RulesOf(Attribute attribute)
{
    const AttributeRow& row = RowOf(attribute);
    constexpr std::array kShares{AttributeUnit::Percent, AttributeUnit::Byte,
                                 AttributeUnit::Fraction, AttributeUnit::Steps};
    const bool isShare = std::ranges::find(kShares, row.unit) != kShares.end();
    constexpr double kHundredth = 0.01;
    constexpr double kTenth = 0.1;
    const bool isWhole = row.kind == AttributeKind::WholeNumber;
    const double step = isWhole || row.unit == AttributeUnit::Steps ? 1.0
                        : row.unit == AttributeUnit::Fraction       ? kHundredth
                                                                    : kTenth;
    return {row.range.least, row.range.most, step, isShare ? row.range.most : 1.0, isWhole};
}

AmountField::AmountField(QWidget* parent)
    : QLineEdit(parent), m_input(new NumberInput(*this, *this))
{
    m_input->SetRules({.isWhole = true});
}

void AmountField::Hold(Attribute attribute)
{
    m_input->SetRules(RulesOf(attribute));
    m_input->ShowQuietly(QString::fromUtf8(FactoryText(attribute)));
    m_input->DragOnLabels();
}

QSize AmountField::sizeHint() const
{
    constexpr int kLeastWidth = 52;
    constexpr int kAroundText = 16;
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-0000")) + kAroundText;
    return {std::max(kLeastWidth, width), QLineEdit::sizeHint().height()};
}

void AmountField::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    m_input->PaintMark();
}

}  // namespace CorvexMaterial
