#include "controls/AmountField.h"

#include "platform/NumberText.h"

#include <QPainter>
#include <QVariant>

namespace CorvexMaterial {

namespace {

const QColor kMarkColor(0xd8, 0x3a, 0x34);

}  // namespace

AmountField::AmountField(QWidget* parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, &AmountField::Mark);
}

void AmountField::SetFallback(const QString& text)
{
    m_fallback = text;
    Mark();
}

void AmountField::Mark()
{
    m_invalid = !WholeNumberFromText(text().toStdString()).has_value();
    setProperty("invalid", m_invalid);
    setToolTip(m_invalid ? tr("“%1” is not a whole number; %2 is used.").arg(text(), m_fallback)
                         : QString());
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
    painter.setPen(QPen(kMarkColor, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

}  // namespace CorvexMaterial
