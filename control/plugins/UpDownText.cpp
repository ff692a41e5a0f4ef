#include "UpDownText.h"

#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/PlainText.h>

#include <QLineEdit>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace CorvexMaterial {

namespace {

const QColor kMarkColor(0xd8, 0x3a, 0x34);

}  // namespace

UpDownText::UpDownText(QWidget* parent) : QAbstractSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    connect(lineEdit(), &QLineEdit::textChanged, this, &UpDownText::Mark);
    connect(this, &QAbstractSpinBox::editingFinished, this, &UpDownText::Confirm);
}

void UpDownText::ShowText(const QString& text)
{
    m_confirmed = text;
    lineEdit()->setText(text);
}

void UpDownText::stepBy(int steps)
{
    const auto now = NumberFromText(text().toStdString()).value_or(m_numbers.emptied);
    const double next =
        std::clamp(now + steps * m_numbers.increment, m_numbers.minimum, m_numbers.maximum);
    lineEdit()->setText(QString::fromStdString(TextOfSingle(static_cast<float>(next))));
    Confirm();
}

QAbstractSpinBox::StepEnabled UpDownText::stepEnabled() const
{
    const auto now = NumberFromText(text().toStdString()).value_or(m_numbers.emptied);
    StepEnabled steps = StepNone;
    steps.setFlag(StepUpEnabled, now < m_numbers.maximum);
    steps.setFlag(StepDownEnabled, now > m_numbers.minimum);
    return steps;
}

QValidator::State UpDownText::validate(QString& /*text*/, int& /*position*/) const
{
    return QValidator::Acceptable;
}

void UpDownText::Confirm()
{
    if (text().trimmed().isEmpty()) {
        lineEdit()->setText(QString::fromStdString(TextOfSingle(m_numbers.emptied)));
    }
    if (text() != m_confirmed) {
        m_confirmed = text();
        Q_EMIT Confirmed();
    }
}

void UpDownText::Mark()
{
    m_invalid = !SingleFromText(text().toStdString()).has_value();
    setProperty("invalid", m_invalid);
    setToolTip(m_invalid ? PlainTip(tr("“%1” is not a number.").arg(text())) : QString());
    update();
}

void UpDownText::paintEvent(QPaintEvent* event)
{
    QAbstractSpinBox::paintEvent(event);
    if (!m_invalid) {
        return;
    }
    // Painted here so that the mark shows under any style sheet of the host.
    QPainter painter(this);
    painter.setPen(QPen(kMarkColor, 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void UpDownText::wheelEvent(QWheelEvent* event)
{
    // The wheel of somebody who scrolls past must not turn the number.
    if (hasFocus()) {
        QAbstractSpinBox::wheelEvent(event);
    } else {
        event->ignore();
    }
}

}  // namespace CorvexMaterial
