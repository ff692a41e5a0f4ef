#pragma once

#include <QLineEdit>

namespace CorvexMaterial {

/// A text box for a whole number. It accepts any text; one that is no whole number is marked, and
/// the property `invalid` tells so.
class AmountField : public QLineEdit {
    Q_OBJECT

public:
    explicit AmountField(QWidget* parent);

    /// What is used while the text is no number; named in the mark's tool tip.
    void SetFallback(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Mark();

    QString m_fallback;
    bool m_invalid = false;
};

}  // namespace CorvexMaterial
