#pragma once

#include <CorvexMaterial/Colour.h>

#include <QAbstractButton>

namespace CorvexMaterial {

/// A field of one colour that can be pressed.
class Swatch : public QAbstractButton {
    Q_OBJECT

public:
    explicit Swatch(QWidget* parent);

    void SetColour(Colour colour);
    [[nodiscard]] Colour Value() const;
    [[nodiscard]] QSize sizeHint() const override { return {28, 22}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
};

}  // namespace CorvexMaterial
