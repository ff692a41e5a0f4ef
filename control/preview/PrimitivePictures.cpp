#include "PrimitivePictures.h"

#include "DrawnIcon.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <array>

namespace CorvexMaterial {

namespace {

// Drawn in a unit square, light from the upper left as in the preview itself.
const QColor kLight(0xf2, 0xf4, 0xf7);
const QColor kMiddle(0xa9, 0xb2, 0xbf);
const QColor kDark(0x5c, 0x66, 0x75);

QLinearGradient AcrossGradient()
{
    QLinearGradient gradient(0.15, 0.5, 0.85, 0.5);
    gradient.setColorAt(0.0, kMiddle);
    gradient.setColorAt(0.3, kLight);
    gradient.setColorAt(1.0, kDark);
    return gradient;
}

QRadialGradient BallGradient()
{
    QRadialGradient gradient(0.5, 0.5, 0.46, 0.36, 0.34);
    gradient.setColorAt(0.0, kLight);
    gradient.setColorAt(0.55, kMiddle);
    gradient.setColorAt(1.0, kDark);
    return gradient;
}

void DrawCube(QPainter& painter)
{
    const QPointF middle(0.5, 0.48);
    const std::array top{QPointF(0.5, 0.08), QPointF(0.88, 0.27), middle, QPointF(0.12, 0.27)};
    const std::array left{QPointF(0.12, 0.27), middle, QPointF(0.5, 0.93), QPointF(0.12, 0.71)};
    const std::array right{QPointF(0.88, 0.27), middle, QPointF(0.5, 0.93), QPointF(0.88, 0.71)};
    painter.setBrush(kLight);
    painter.drawPolygon(top.data(), static_cast<int>(top.size()));
    painter.setBrush(kMiddle);
    painter.drawPolygon(left.data(), static_cast<int>(left.size()));
    painter.setBrush(kDark);
    painter.drawPolygon(right.data(), static_cast<int>(right.size()));
}

void DrawCylinder(QPainter& painter)
{
    QPainterPath side;
    side.moveTo(0.18, 0.2);
    side.lineTo(0.18, 0.8);
    side.arcTo(QRectF(0.18, 0.67, 0.64, 0.26), 180, 180);
    side.lineTo(0.82, 0.2);
    painter.setBrush(AcrossGradient());
    painter.drawPath(side);
    painter.setBrush(kLight);
    painter.drawEllipse(QRectF(0.18, 0.07, 0.64, 0.26));
}

void DrawSphere(QPainter& painter)
{
    painter.setBrush(BallGradient());
    painter.drawEllipse(QRectF(0.08, 0.08, 0.84, 0.84));
}

void DrawTorus(QPainter& painter)
{
    QPainterPath ring;
    ring.addEllipse(QRectF(0.04, 0.2, 0.92, 0.6));
    ring.addEllipse(QRectF(0.32, 0.39, 0.36, 0.17));
    ring.setFillRule(Qt::OddEvenFill);
    QLinearGradient gradient(0.3, 0.15, 0.6, 0.85);
    gradient.setColorAt(0.0, kLight);
    gradient.setColorAt(0.5, kMiddle);
    gradient.setColorAt(1.0, kDark);
    painter.setBrush(gradient);
    painter.drawPath(ring);
}

void DrawCone(QPainter& painter)
{
    QPainterPath cone;
    cone.moveTo(0.5, 0.06);
    cone.lineTo(0.86, 0.8);
    cone.arcTo(QRectF(0.14, 0.67, 0.72, 0.26), 0, -180);
    cone.closeSubpath();
    painter.setBrush(AcrossGradient());
    painter.drawPath(cone);
}

void DrawNothing(QPainter& painter)
{
    painter.setPen(QPen(kMiddle, 0.04, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(0.14, 0.14, 0.72, 0.72), 0.1, 0.1);
}

constexpr std::array kPictures{DrawCube, DrawCylinder, DrawSphere, DrawTorus, DrawCone};

}  // namespace

QIcon PrimitivePicture(int code)
{
    return DrawnIcon(1.0, [code](QPainter& painter, QIcon::Mode mode) {
        painter.setOpacity(mode == QIcon::Disabled ? 0.4 : 1.0);
        const bool known = code >= 0 && code < static_cast<int>(kPictures.size());
        (known ? kPictures[static_cast<std::size_t>(code)] : DrawNothing)(painter);
    });
}

}  // namespace CorvexMaterial
