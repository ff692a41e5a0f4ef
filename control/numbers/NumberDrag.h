#pragma once

#include <QObject>
#include <QPointF>

class QLabel;
class QMouseEvent;
class QWidget;

namespace CorvexMaterial {

class NumberInput;

/// Turns a field's number while its label is dragged to the left or right: finer with Shift, to
/// tens of steps with Ctrl. Esc takes the drag back. A click on the label goes to the field.
class NumberDrag : public QObject {
    Q_OBJECT

public:
    NumberDrag(QLabel& label, NumberInput& input, QWidget& box);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class State { Idle, Pressed, Dragged };

    bool OnLabel(QEvent& event);
    [[nodiscard]] bool IsUsable() const;
    void Press(const QMouseEvent& event);
    void Move(const QMouseEvent& event);
    void Begin();
    void End();
    void TakeBack();
    [[nodiscard]] double PerPixel() const;

    QLabel& m_label;
    NumberInput& m_input;
    QWidget& m_box;
    State m_state = State::Idle;
    QPointF m_last;
    double m_first = 0.0;    ///< number at the press
    double m_reached = 0.0;  ///< without rounding and snapping
};

}  // namespace CorvexMaterial
