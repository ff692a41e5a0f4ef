#pragma once

#include "HsvColour.h"

#include <QImage>
#include <QWidget>

namespace CorvexMaterial {

/// A picture of colours in which one is marked and can be moved, with the mouse or the arrow keys,
/// ten times as far with Shift.
class HsvField : public QWidget {
    Q_OBJECT

public:
    explicit HsvField(QWidget* parent);

    [[nodiscard]] const HsvColour& Value() const { return m_value; }
    void Show(const HsvColour& value);

Q_SIGNALS:
    /// The user has moved it.
    void Moved(const CorvexMaterial::HsvColour& value);

protected:
    /// 0 to 1, from the left and from the top.
    [[nodiscard]] virtual QPointF PlaceOf(const HsvColour& value) const = 0;
    [[nodiscard]] virtual HsvColour At(QPointF place) const = 0;
    /// Of one arrow key.
    [[nodiscard]] virtual QPointF Step() const = 0;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void MoveTo(QPointF place);
    [[nodiscard]] QRectF Picture() const;

    HsvColour m_value;
};

/// Saturation to the right, brightness to the top, of one hue.
class SaturationField : public HsvField {
    Q_OBJECT

public:
    using HsvField::HsvField;
    [[nodiscard]] QSize sizeHint() const override { return {232, 168}; }

protected:
    [[nodiscard]] QPointF PlaceOf(const HsvColour& value) const override;
    [[nodiscard]] HsvColour At(QPointF place) const override;
    [[nodiscard]] QPointF Step() const override { return {0.01, 0.01}; }
};

/// All hues from top to bottom.
class HueStrip : public HsvField {
    Q_OBJECT

public:
    using HsvField::HsvField;
    [[nodiscard]] QSize sizeHint() const override { return {24, 168}; }

protected:
    [[nodiscard]] QPointF PlaceOf(const HsvColour& value) const override;
    [[nodiscard]] HsvColour At(QPointF place) const override;
    [[nodiscard]] QPointF Step() const override { return {0.0, 1.0 / 360}; }
};

}  // namespace CorvexMaterial
