#pragma once

#include "NumberInput.h"
#include "TouchedRows.h"
#include <CorvexMaterial/Schema.h>

#include <QLineEdit>

namespace CorvexMaterial {

/// Of the attribute's field.
[[nodiscard]] NumberRules RulesOf(Attribute attribute);

/// A text box for a number, for whole ones unless it is told otherwise.
class AmountField : public QLineEdit {
    Q_OBJECT

public:
    explicit AmountField(QWidget* parent);

    /// Becomes the attribute's field, in which its factory value stands.
    void Hold(Attribute attribute);

    [[nodiscard]] NumberInput& Input() { return *m_input; }
    /// The last whole number; 0 before there was any.
    [[nodiscard]] std::int32_t Value() const { return static_cast<std::int32_t>(m_input->Value()); }
    /// What an edit of the text touches when this is the attribute's field: nothing while there is
    /// no number.
    [[nodiscard]] TouchedRows Touched(Attribute attribute) const
    {
        return m_input->IsTaken() ? TouchedRows{{attribute}} : TouchedRows();
    }

    /// Of a whole number with its sign, in any font.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    NumberInput* m_input;
};

}  // namespace CorvexMaterial
