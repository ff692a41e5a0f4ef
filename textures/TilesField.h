#pragma once

#include <QAbstractSpinBox>

namespace CorvexMaterial {

/// The number of tiles per unit with its up and down buttons. Any text may stand in it and none is
/// rewritten while it is typed; what it means is decided when it is used.
class TilesField : public QAbstractSpinBox {
    Q_OBJECT

public:
    explicit TilesField(QWidget* parent);

    void SetText(const QString& text);

    void stepBy(int steps) override;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void TextChanged();

protected:
    [[nodiscard]] StepEnabled stepEnabled() const override;
};

}  // namespace CorvexMaterial
