#pragma once

#include "TouchedRows.h"

#include <QLineEdit>

#include <cstdint>

namespace CorvexMaterial {

/// A text box for a whole number. It accepts any text; one that is no whole number is marked, the
/// property `invalid` tells so, and the last number holds until there is another. Who leaves the
/// field finds that number in it.
class AmountField : public QLineEdit {
    Q_OBJECT

public:
    explicit AmountField(QWidget* parent);

    /// The last whole number; 0 before there was any.
    [[nodiscard]] std::int32_t Value() const { return m_value; }
    /// What an edit of the text touches when this is the attribute's field: nothing while there is
    /// no number.
    [[nodiscard]] TouchedRows Touched(Attribute attribute) const
    {
        return m_invalid ? TouchedRows() : TouchedRows{{attribute}};
    }

    /// Of a whole number with its sign, in any font.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Mark();

    std::int32_t m_value = 0;
    bool m_invalid = false;
    QString m_tip;  ///< of a whole number
};

}  // namespace CorvexMaterial
