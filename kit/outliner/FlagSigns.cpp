#include "FlagSigns.h"

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/MaterialRecord.h>

#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>

namespace studio {
namespace {

void DrawEye(QPainter& painter, bool isClosed)
{
    QPainterPath lids(QPointF(1.5, 8));
    lids.quadTo(QPointF(8, 0.5), QPointF(14.5, 8));
    lids.quadTo(QPointF(8, 15.5), QPointF(1.5, 8));
    painter.drawPath(lids);
    if (isClosed) {
        painter.drawLine(QPointF(3, 13.5), QPointF(13, 2.5));
        return;
    }
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(8, 8), 2, 2);
}

void DrawLock(QPainter& painter, bool isClosed)
{
    QPainterPath bow(QPointF(5, 7.5));
    bow.lineTo(5, 5.5);
    bow.arcTo(QRectF(5, 2.5, 6, 6), 180, -180);
    bow.lineTo(11, isClosed ? 7.5 : 5.5);
    painter.drawPath(bow);
    if (isClosed) {
        painter.setBrush(painter.pen().color());
    }
    painter.drawRoundedRect(QRectF(3.5, 7.5, 9, 6.5), 1, 1);
}

void DrawChain(QPainter& painter)
{
    for (const qreal side : {-1.0, 1.0}) {
        painter.save();
        painter.translate(8, 8);
        painter.rotate(-45);
        painter.translate(side * 3.2, 0);
        painter.drawRoundedRect(QRectF(-3.6, -2.4, 7.2, 4.8), 2.4, 2.4);
        painter.restore();
    }
}

QColor ColourOf(CorvexMaterial::Colour colour)
{
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

}  // namespace

void DrawFlag(QPainter& painter, const QRectF& area, FlagSign sign, const QColor& colour)
{
    constexpr qreal kGrid = 16.0;
    const qreal side = std::min({area.width(), area.height(), kGrid * 1.5});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.center() - QPointF(side / 2, side / 2));
    painter.scale(side / kGrid, side / kGrid);
    painter.setPen(QPen(colour, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (sign) {
    case FlagSign::Shown:
    case FlagSign::Hidden:
        DrawEye(painter, sign == FlagSign::Hidden);
        break;
    case FlagSign::Unlocked:
    case FlagSign::Locked:
        DrawLock(painter, sign == FlagSign::Locked);
        break;
    case FlagSign::Linked:
        DrawChain(painter);
        break;
    }
    painter.restore();
}

void DrawSwatch(QPainter& painter, const QRectF& area, const CorvexDB::udtMaterial& material)
{
    const QColor colour = ColourOf(material.Color);
    QRadialGradient ball(area.center(), area.width() / 2,
                         area.topLeft() + QPointF(area.width() * 0.35, area.height() * 0.3));
    const QColor shine = material.Specular > 0 ? colour.lighter(170) : colour.lighter(115);
    ball.setColorAt(0.0, shine);
    ball.setColorAt(0.45, colour);
    ball.setColorAt(1.0, colour.darker(190));
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(1.0 - std::clamp(material.Transparency, 0, 100) * 0.006);
    painter.setBrush(ball);
    // So that a black one is seen on black, and a white one on white.
    painter.setPen(QPen(QColor(128, 128, 128), 1));
    painter.drawEllipse(area.adjusted(0.5, 0.5, -0.5, -0.5));
    painter.restore();
}

}  // namespace studio
