#pragma once

#include <CorvexMaterial/NumberExpression.h>

#include <QObject>
#include <QString>

#include <cstdint>
#include <optional>

class QLabel;
class QLineEdit;
class QSlider;
class QWidget;

namespace CorvexMaterial {

/// What numbers a field is for. Typed ones need not be in its range; steps and drags stay in it.
struct NumberRules {
    double least = 0.0;
    double most = 0.0;
    double step = 1.0;
    double hundredPercent = 1.0;  ///< what "100 %" is
    bool isWhole = false;
    std::optional<double> emptied = {};  ///< what an empty field stands for
};

/// What every field for a number does. It holds a text and, apart from it, the last number that it
/// was: digits count as they are typed, anything to compute on Return or when the field is left,
/// and then the result stands in it. A text that is no number never counts; it is marked, the
/// property `invalid` tells so, and who leaves the field finds the last number in it. Up and Down
/// step, ten times as far with Ctrl and a tenth with Shift; labels and a slider can be dragged.
class NumberInput : public QObject {
    Q_OBJECT

public:
    /// The box is the field itself or what stands around it. Both outlive this object, which is a
    /// child of the box.
    NumberInput(QLineEdit& field, QWidget& box);
    /// None where the widget is no such box.
    [[nodiscard]] static NumberInput* Of(const QWidget& box);

    void SetRules(const NumberRules& rules) { m_rules = rules; }
    [[nodiscard]] const NumberRules& Rules() const { return m_rules; }

    /// The last number; 0 before there was any.
    [[nodiscard]] double Value() const { return m_value; }
    /// Whether that is what the text says now.
    [[nodiscard]] bool IsTaken() const { return m_read.isPlain; }
    /// Whether it says one at all, be it one to compute.
    [[nodiscard]] bool IsNumber() const { return m_read.fault == TypedNumber::Fault::None; }
    /// Whether it is the user's and he has not left the field since.
    [[nodiscard]] bool IsTyped() const { return m_isTyped; }

    /// Shows another text, of which nobody is told.
    void ShowQuietly(const QString& text);
    void ShowQuietly(double value) { ShowQuietly(TextOf(value)); }
    /// As who leaves the field does.
    void Commit();
    void Step(double steps);
    /// Within the range, or no further outside of it than it is.
    void Set(double value);

    void DragOn(QLabel& label);
    /// On the labels that lead to the box or its slider.
    void DragOnLabels();
    /// Both show the same number, and the field is its storage.
    void LinkSlider(QSlider& slider);
    /// The number is where the slider stands: whole, and in its range when the field is left.
    void ShowSlider(QSlider& slider);
    /// A number of its own for each drag of a label or of the slider; 0 while there is none.
    [[nodiscard]] std::uint32_t Gesture() const;
    void BeginGesture();
    void EndGesture() { m_isDragged = false; }

    /// Over the box, after it has painted itself, so that it shows under any style sheet.
    void PaintMark() const;

Q_SIGNALS:
    /// Return in a field that nobody has changed.
    void Retaken();
    /// The field has been left, or another number was entered.
    void Committed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TakeSlider(QSlider& slider);
    [[nodiscard]] QString TextOf(double value) const;
    [[nodiscard]] QString Explanation() const;
    bool OnKey(int key, Qt::KeyboardModifiers modifiers);
    bool OnReturn();
    void Read();
    void ShowState();
    void Hint(const QString& text) const;

    QLineEdit& m_field;
    QWidget& m_box;
    NumberRules m_rules;
    TypedNumber m_read{0.0, false, TypedNumber::Fault::Unfinished};
    double m_value = 0.0;
    QString m_tip;          ///< of the box without the mark
    QString m_description;  ///< likewise
    QSlider* m_slider = nullptr;
    std::uint32_t m_gesture = 0;
    bool m_isTyped = false;
    bool m_isMarked = false;
    bool m_isDragged = false;
};

}  // namespace CorvexMaterial
