#pragma once

#include <CorvexMaterial/Export.h>

#include <QAbstractSpinBox>

class QLabel;

namespace CorvexMaterial {

class NumberInput;

/// A text box for a number, with buttons that step it, as the material panel has them: what is
/// typed may be computed ("2*1.5", "50 %", "12,5"), what is no number is marked and gone when the
/// box is left.
class CORVEX_EXPORT UpDownText : public QAbstractSpinBox {
    Q_OBJECT

public:
    /// Typed numbers need not be in the range; steps stay in it.
    struct Numbers {
        double minimum = 0.0;
        double maximum = 0.0;
        double increment = 1.0;
        float emptied = 0.0F;         ///< shown when an emptied text is confirmed
        double hundredPercent = 1.0;  ///< what "100 %" is
        bool isWhole = false;
    };

    explicit UpDownText(QWidget* parent = nullptr);

    void SetNumbers(const Numbers& numbers);
    /// Without a `Confirmed`.
    void ShowText(const QString& text);
    /// The last number that the text was; 0 before there was any.
    [[nodiscard]] double Value() const;
    /// Whether the text says one, be it one to compute.
    [[nodiscard]] bool IsNumber() const;
    /// Takes what has been typed, as leaving the box does.
    void Commit();
    /// The label can be dragged to step the number.
    void DragOn(QLabel& label);
    void stepBy(int steps) override;

Q_SIGNALS:
    /// The user confirmed another text, stepped or dragged.
    void Confirmed();
    /// He typed a number within the range that he has not confirmed yet.
    void Typed();
    /// Return over a number that he has not changed.
    void Retaken();

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& text, int& position) const override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Confirm();

    NumberInput* m_input;
    QString m_confirmed;  ///< empty after what was typed
};

}  // namespace CorvexMaterial
