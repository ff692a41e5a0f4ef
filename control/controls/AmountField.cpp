#include "AmountField.h"

#include <CorvexMaterial/LegibleColours.h>
#include <CorvexMaterial/NumberText.h>

#include <QPainter>
#include <QSignalBlocker>
#include <QVariant>

namespace CorvexMaterial {

AmountField::AmountField(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &AmountField::Mark);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (m_invalid) {
            const QSignalBlocker quiet(this);  // the number that holds already
            setText(QString::number(m_value));
            Mark();
        }
    });
}

QSize AmountField::sizeHint() const
{
    constexpr int kLeastWidth = 52;
    constexpr int kAroundText = 16;
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("-0000")) + kAroundText;
    return {std::max(kLeastWidth, width), QLineEdit::sizeHint().height()};
}

void AmountField::Mark()
{
    const auto value = WholeNumberFromText(text().toStdString());
    m_value = value.value_or(m_value);
    if (!m_invalid) {
        m_tip = toolTip();
    }
    m_invalid = !value;
    setProperty("invalid", m_invalid);
    setToolTip(m_invalid ? tr("Not a whole number; %1 is used.").arg(m_value) : m_tip);
    update();
}

void AmountField::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (!m_invalid) {
        return;
    }
    // Painted here so that the mark shows under any style sheet of the host.
    QPainter painter(this);
    painter.setPen(QPen(ErrorOn(palette().color(QPalette::Base)), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

}  // namespace CorvexMaterial
