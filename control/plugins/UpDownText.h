#pragma once

#include <QAbstractSpinBox>

namespace CorvexMaterial {

/// A text box for a number, with buttons that step it. It accepts any text; one that is no number
/// is marked, and the property `invalid` tells so.
class UpDownText : public QAbstractSpinBox {
    Q_OBJECT

public:
    struct Numbers {
        double minimum = 0.0;
        double maximum = 0.0;
        double increment = 1.0;
        float emptied = 0.0F;  ///< shown when an emptied text is confirmed
    };

    explicit UpDownText(QWidget* parent);

    void SetNumbers(const Numbers& numbers) { m_numbers = numbers; }
    /// Without a `Confirmed`.
    void ShowText(const QString& text);
    void stepBy(int steps) override;

Q_SIGNALS:
    /// The user confirmed another text, or stepped.
    void Confirmed();

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
    QValidator::State validate(QString& text, int& position) const override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Confirm();
    void Mark();

    Numbers m_numbers;
    QString m_confirmed;
    bool m_invalid = false;
};

}  // namespace CorvexMaterial
