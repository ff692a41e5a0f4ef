#include "NumberInput.h"

#include "NumberDrag.h"
#include <CorvexMaterial/LegibleColours.h>
#include <CorvexMaterial/NumberText.h>
#include <CorvexMaterial/PlainText.h>

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolTip>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr double kCoarse = 10.0;
constexpr qsizetype kLongestQuote = 24;

/// Of all fields, so that two drags never have one number.
std::uint32_t NextGesture()
{
    static std::uint32_t last = 0;
    return ++last;
}

}  // namespace

NumberInput::NumberInput(QLineEdit& field, QWidget& box) : QObject(&box), m_field(field), m_box(box)
{
    connect(&field, &QLineEdit::textEdited, this, [this] { m_isTyped = true; });
    connect(&field, &QLineEdit::textChanged, this, &NumberInput::Read);
    box.installEventFilter(this);
}

NumberInput* NumberInput::Of(const QWidget& box)
{
    return box.findChild<NumberInput*>({}, Qt::FindDirectChildrenOnly);
}

void NumberInput::Read()
{
    m_read = m_rules.emptied && m_field.text().trimmed().isEmpty()
                 ? TypedNumber{*m_rules.emptied}
                 : ReadTyped(m_field.text().toStdString(), m_rules.hundredPercent);
    const bool isTooLong = m_rules.isWhole ? !RoundedIfFits(m_read.value).has_value()
                                           : !std::isfinite(static_cast<float>(m_read.value));
    if (IsNumber() && isTooLong) {
        m_read = {0.0, false, TypedNumber::Fault::NoNumber};
    }
    if (m_read.isPlain) {
        m_value = m_rules.isWhole ? *RoundedIfFits(m_read.value) : m_read.value;
    }
    ShowState();
}

QString NumberInput::TextOf(double value) const
{
    if (const auto whole = m_rules.isWhole ? RoundedIfFits(value) : std::nullopt) {
        return QString::number(*whole);
    }
    return QString::fromStdString(TextOfSingle(static_cast<float>(value)));
}

QString NumberInput::Explanation() const
{
    const QString now = tr("%1 is used.").arg(TextOf(m_value));
    const QString text = m_field.text().trimmed();
    if (text.isEmpty()) {
        return tr("There is no number here; %1").arg(now);
    }
    if (m_read.fault == TypedNumber::Fault::GroupSign) {
        return tr("Numbers have one decimal sign and no others: 1234.5 or 1234,5. %1").arg(now);
    }
    const QString said = m_read.fault == TypedNumber::Fault::Unfinished
                             ? tr("“%1” is not a number yet; %2")
                             : tr("“%1” is not a number; %2");
    return said.arg(text.left(kLongestQuote), now);
}

void NumberInput::ShowState()
{
    const bool isInvalid = !IsNumber();
    if (isInvalid && !m_isMarked) {
        m_tip = m_box.toolTip();
        m_description = m_box.accessibleDescription();
    }
    if (isInvalid || m_isMarked) {
        m_box.setToolTip(isInvalid ? PlainTip(Explanation()) : m_tip);
        m_box.setAccessibleDescription(isInvalid ? Explanation() : m_description);
        m_box.update();
    }
    m_isMarked = isInvalid;
    m_box.setProperty("invalid", isInvalid);
    const bool isComputed = !isInvalid && !m_read.isPlain;
    Hint(isComputed && m_isTyped ? tr("= %1").arg(TextOf(m_read.value)) : QString());
}

void NumberInput::Hint(const QString& text) const
{
    if (m_field.hasFocus() || m_box.hasFocus()) {
        QToolTip::showText(m_box.mapToGlobal(QPoint(0, m_box.height() / 2)), PlainTip(text),
                           &m_box);
    }
}

void NumberInput::ShowQuietly(const QString& text)
{
    {
        const QSignalBlocker quiet(&m_field);
        m_field.setText(text);
    }
    m_isTyped = false;
    Read();
    m_box.update();
}

void NumberInput::Commit()
{
    const bool isComputed = IsNumber() && !m_read.isPlain;
    const bool isTyped = m_isTyped;
    m_isTyped = false;
    if (isComputed) {
        m_field.setText(TextOf(m_read.value));
    } else if (!m_read.isPlain || (isTyped && m_read.value != m_value)) {
        ShowQuietly(m_value);  // which counts already
    }
    Q_EMIT Committed();
}

void NumberInput::Step(double steps)
{
    const double far = m_rules.isWhole ? std::max(std::abs(steps), 1.0) : std::abs(steps);
    Commit();
    Set(m_value + std::copysign(far, steps) * m_rules.step);
    m_field.selectAll();
}

void NumberInput::Set(double value)
{
    const double inside = std::clamp(value, std::min(m_rules.least, m_value),
                                     std::max({m_rules.least, m_rules.most, m_value}));
    m_isTyped = false;
    m_field.setText(TextOf(inside));
    Q_EMIT Committed();
}

void NumberInput::DragOn(QLabel& label)
{
    new NumberDrag(label, *this, m_box);
}

void NumberInput::DragOnLabels()
{
    for (QLabel* label : m_box.parentWidget()->findChildren<QLabel*>()) {
        if (label->buddy() == &m_box || (m_slider != nullptr && label->buddy() == m_slider)) {
            DragOn(*label);
        }
    }
}

void NumberInput::TakeSlider(QSlider& slider)
{
    m_slider = &slider;
    connect(&slider, &QSlider::sliderPressed, this, [this] { m_gesture = NextGesture(); });
}

void NumberInput::LinkSlider(QSlider& slider)
{
    TakeSlider(slider);
    const auto follow = [this, &slider] {
        const QSignalBlocker quiet(&slider);
        slider.setValue(RoundedIfFits(m_value).value_or(0));
    };
    follow();
    connect(&m_field, &QLineEdit::textChanged, &slider, follow);
    connect(&slider, &QSlider::valueChanged, this, [this](int value) {
        m_isTyped = false;
        m_field.setText(QString::number(value));
    });
}

void NumberInput::ShowSlider(QSlider& slider)
{
    TakeSlider(slider);
    m_rules.isWhole = true;
    const auto show = [this, &slider] {
        if (!m_isTyped) {
            ShowQuietly(slider.value());
        }
    };
    show();
    connect(&slider, &QSlider::valueChanged, this, show);
    connect(this, &NumberInput::Committed, &slider, show);
    connect(&m_field, &QLineEdit::textChanged, &slider, [this, &slider] {
        if (m_read.isPlain) {
            slider.setValue(static_cast<int>(m_value));
        }
    });
}

void NumberInput::BeginGesture()
{
    m_gesture = NextGesture();
    m_isDragged = true;
}

std::uint32_t NumberInput::Gesture() const
{
    const bool isSlid = m_slider != nullptr && m_slider->isSliderDown();
    return m_isDragged || isSlid ? m_gesture : 0;
}

bool NumberInput::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        return OnKey(key->key(), key->modifiers());
    }
    // A menu or another window comes back to what was being typed.
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<const QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            Commit();
        }
    }
    return QObject::eventFilter(watched, event);
}

bool NumberInput::OnKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        return OnReturn();
    }
    const bool isStep = key == Qt::Key_Up || key == Qt::Key_Down;
    if (!isStep || modifiers.testFlag(Qt::AltModifier) || m_field.isReadOnly()) {
        return false;
    }
    const double steps = modifiers.testFlag(Qt::ControlModifier) ? kCoarse
                         : modifiers.testFlag(Qt::ShiftModifier) ? 1.0 / kCoarse
                                                                 : 1.0;
    Step(key == Qt::Key_Up ? steps : -steps);
    return true;
}

/// What is computed or refused is first of all shown; in a dialog the next Return is its button.
bool NumberInput::OnReturn()
{
    if (!IsNumber()) {
        Hint(Explanation());
        return true;
    }
    const bool isComputed = !m_read.isPlain;
    const bool isTyped = m_isTyped;
    Commit();
    m_field.selectAll();
    if (!isTyped) {
        Q_EMIT Retaken();
    }
    return isComputed;
}

void NumberInput::PaintMark() const
{
    if (m_isMarked) {
        QPainter painter(&m_box);
        painter.setPen(QPen(ErrorOn(m_box.palette().color(QPalette::Base)), 2));
        painter.drawRect(m_box.rect().adjusted(1, 1, -1, -1));
    }
}

}  // namespace CorvexMaterial
