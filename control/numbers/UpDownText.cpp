#include <CorvexMaterial/UpDownText.h>

#include "NumberInput.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace CorvexMaterial {

UpDownText::UpDownText(QWidget* parent)
    : QAbstractSpinBox(parent), m_input(new NumberInput(*lineEdit(), *this))
{
    setFocusPolicy(Qt::StrongFocus);
    connect(m_input, &NumberInput::Committed, this, &UpDownText::Confirm);
    connect(m_input, &NumberInput::Retaken, this, &UpDownText::Retaken);
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] {
        const NumberRules& rules = m_input->Rules();
        const double value = m_input->Value();
        if (m_input->IsTyped() && m_input->IsTaken() && value >= rules.least &&
            value <= rules.most) {
            m_confirmed.clear();
            Q_EMIT Typed();
        }
    });
}

void UpDownText::SetNumbers(const Numbers& numbers)
{
    m_input->SetRules({numbers.minimum, numbers.maximum, numbers.increment, numbers.hundredPercent,
                       numbers.isWhole, static_cast<double>(numbers.emptied)});
}

void UpDownText::ShowText(const QString& text)
{
    m_confirmed = text;
    m_input->ShowQuietly(text);
}

double UpDownText::Value() const
{
    return m_input->Value();
}

bool UpDownText::IsNumber() const
{
    return m_input->IsNumber();
}

void UpDownText::Commit()
{
    m_input->Commit();
}

void UpDownText::DragOn(QLabel& label)
{
    m_input->DragOn(label);
}

void UpDownText::stepBy(int steps)
{
    m_input->Step(steps);
}

QAbstractSpinBox::StepEnabled UpDownText::stepEnabled() const
{
    StepEnabled steps = StepNone;
    steps.setFlag(StepUpEnabled, Value() < m_input->Rules().most);
    steps.setFlag(StepDownEnabled, Value() > m_input->Rules().least);
    return steps;
}

QValidator::State UpDownText::validate(QString& /*text*/, int& /*position*/) const
{
    return QValidator::Acceptable;
}

void UpDownText::Confirm()
{
    if (text() != m_confirmed) {
        m_confirmed = text();
        Q_EMIT Confirmed();
    }
}

void UpDownText::paintEvent(QPaintEvent* event)
{
    QAbstractSpinBox::paintEvent(event);
    m_input->PaintMark();
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
