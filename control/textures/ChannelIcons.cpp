#include "ChannelIcons.h"

#include "DrawnIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

#include <array>

namespace CorvexMaterial {

namespace {

// Every sign is drawn in a square of 16 units with a pen of 1.3 and the pen's colour as the fill.
constexpr qreal kSide = 16.0;
constexpr qreal kPenWidth = 1.3;
constexpr qreal kFaint = 0.35;

QColor Faint(const QPainter& painter)
{
    QColor color = painter.pen().color();
    color.setAlphaF(static_cast<float>(color.alphaF() * kFaint));
    return color;
}

void DrawSurface(QPainter& painter)
{
    painter.setBrush(Faint(painter));
    painter.drawEllipse(QRectF(2, 2, 12, 12));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(4.5, 4.5, 7, 7), 100 * 16, 70 * 16);
}

void DrawPrimary(QPainter& painter)
{
    painter.drawRect(QRectF(1.7, 2.7, 12.6, 10.6));
    const std::array hills{QPointF(2, 12), QPointF(6, 7.5), QPointF(8.5, 10.5), QPointF(11, 8.5),
                           QPointF(14, 12)};
    painter.drawPolyline(hills.data(), static_cast<int>(hills.size()));
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(10.8, 5.8), 0.9, 0.9);
}

void DrawOverlay(QPainter& painter)
{
    painter.drawRect(QRectF(1.7, 1.7, 8.6, 8.6));
    painter.setBrush(Faint(painter));
    painter.drawRect(QRectF(5.7, 5.7, 8.6, 8.6));
}

void DrawAlpha(QPainter& painter)
{
    const QRectF frame(2, 2, 12, 12);
    painter.drawRect(frame);
    constexpr qreal kCell = 4.0;
    for (int row = 0; row < 3; ++row) {
        for (int column = row % 2; column < 3; column += 2) {
            painter.fillRect(QRectF(2 + column * kCell, 2 + row * kCell, kCell, kCell),
                             painter.pen().color());
        }
    }
}

void DrawBump(QPainter& painter)
{
    QPainterPath bumps(QPointF(1, 11));
    bumps.cubicTo(QPointF(3, 11), QPointF(3, 4), QPointF(5.5, 4));
    bumps.cubicTo(QPointF(8, 4), QPointF(7.5, 9), QPointF(9, 9));
    bumps.cubicTo(QPointF(10.5, 9), QPointF(10, 6.5), QPointF(11.7, 6.5));
    bumps.cubicTo(QPointF(13.5, 6.5), QPointF(13, 11), QPointF(15, 11));
    painter.drawPath(bumps);
    painter.drawLine(QPointF(1, 13.5), QPointF(15, 13.5));
}

void DrawStar(QPainter& painter, QPointF centre, qreal radius)
{
    const qreal waist = radius * 0.22;
    const std::array points{centre + QPointF(0, -radius), centre + QPointF(waist, -waist),
                            centre + QPointF(radius, 0),  centre + QPointF(waist, waist),
                            centre + QPointF(0, radius),  centre + QPointF(-waist, waist),
                            centre + QPointF(-radius, 0), centre + QPointF(-waist, -waist)};
    painter.drawPolygon(points.data(), static_cast<int>(points.size()));
}

void DrawSpecular(QPainter& painter)
{
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    DrawStar(painter, {6.5, 9}, 6);
    DrawStar(painter, {12.3, 3.7}, 3.2);
}

void DrawEnvironment(QPainter& painter)
{
    const QRectF globe(2, 2, 12, 12);
    QPainterPath ground;
    ground.moveTo(14, 8);
    ground.arcTo(globe, 0, -180);
    ground.cubicTo(QPointF(5, 6.5), QPointF(7, 10.5), QPointF(14, 8));
    painter.fillPath(ground, Faint(painter));
    painter.drawEllipse(globe);
    QPainterPath horizon(QPointF(2, 8));
    horizon.cubicTo(QPointF(5, 6.5), QPointF(7, 10.5), QPointF(14, 8));
    painter.drawPath(horizon);
    painter.setBrush(painter.pen().color());
    painter.drawEllipse(QPointF(10, 5), 0.9, 0.9);
}

void DrawCustomFields(QPainter& painter)
{
    for (const qreal y : {2.7, 9.2}) {
        painter.drawLine(QPointF(2, y + 2), QPointF(5, y + 2));
        painter.drawRect(QRectF(7, y, 7.3, 4));
    }
}

void DrawAdvanced(QPainter& painter)
{
    struct Track {
        qreal y;
        qreal knob;
    };
    painter.setBrush(painter.pen().color());
    for (const Track track : {Track{3.5, 10.5}, Track{8, 5}, Track{12.5, 9}}) {
        painter.drawLine(QPointF(1.5, track.y), QPointF(14.5, track.y));
        painter.drawEllipse(QPointF(track.knob, track.y), 1.4, 1.4);
    }
}

void DrawPlugin(QPainter& painter)
{
    painter.drawLine(QPointF(5.7, 1.5), QPointF(5.7, 5));
    painter.drawLine(QPointF(10.3, 1.5), QPointF(10.3, 5));
    QPainterPath body(QPointF(3, 5));
    body.lineTo(13, 5);
    body.lineTo(13, 7.5);
    body.arcTo(QRectF(3, 3, 10, 9), 0, -180);
    body.closeSubpath();
    painter.setBrush(Faint(painter));
    painter.drawPath(body);
    painter.drawLine(QPointF(8, 12), QPointF(8, 15));
}

void DrawSphericalWrap(QPainter& painter)
{
    painter.drawEllipse(QRectF(2, 2, 12, 12));
    painter.drawEllipse(QRectF(5.3, 2, 5.4, 12));
    painter.drawLine(QPointF(2, 8), QPointF(14, 8));
}

void DrawFlatWrap(QPainter& painter)
{
    painter.drawRect(QRectF(2, 2, 12, 12));
    for (const qreal at : {6.0, 10.0}) {
        painter.drawLine(QPointF(at, 2), QPointF(at, 14));
        painter.drawLine(QPointF(2, at), QPointF(14, at));
    }
}

void DrawCylindricalWrap(QPainter& painter)
{
    painter.drawEllipse(QRectF(3, 1.7, 10, 3.6));
    painter.drawLine(QPointF(3, 3.5), QPointF(3, 12.5));
    painter.drawLine(QPointF(13, 3.5), QPointF(13, 12.5));
    painter.drawArc(QRectF(3, 10.7, 10, 3.6), 180 * 16, 180 * 16);
    painter.drawArc(QRectF(3, 6.2, 10, 3.6), 180 * 16, 180 * 16);
    painter.drawLine(QPointF(8, 5.3), QPointF(8, 14.3));
}

void DrawLibraryAdd(QPainter& painter)
{
    painter.setBrush(Faint(painter));
    painter.drawEllipse(QRectF(1.7, 4.7, 9.6, 9.6));
    painter.drawLine(QPointF(12.3, 1.5), QPointF(12.3, 6.5));
    painter.drawLine(QPointF(9.8, 4), QPointF(14.8, 4));
}

void DrawLibraryDelete(QPainter& painter)
{
    painter.drawLine(QPointF(2.5, 4), QPointF(13.5, 4));
    painter.drawPolyline(QPolygonF({{6, 4}, {6, 2}, {10, 2}, {10, 4}}));
    painter.setBrush(Faint(painter));
    painter.drawPolygon(QPolygonF({{3.8, 4}, {4.6, 14}, {11.4, 14}, {12.2, 4}}));
    painter.drawLine(QPointF(6.7, 6.5), QPointF(7, 11.5));
    painter.drawLine(QPointF(9.3, 6.5), QPointF(9, 11.5));
}

void DrawLibraryFile(QPainter& painter)
{
    painter.drawPolyline(
        QPolygonF({{2, 12.8}, {2, 3}, {6.3, 3}, {7.8, 4.8}, {12.5, 4.8}, {12.5, 7}}));
    painter.setBrush(Faint(painter));
    painter.drawPolygon(QPolygonF({{2, 13}, {4.5, 7}, {15, 7}, {12.5, 13}}));
}

constexpr std::array kDrawings{
    DrawSurface,       DrawPrimary,     DrawOverlay,         DrawAlpha,      DrawBump,
    DrawSpecular,      DrawEnvironment, DrawCustomFields,    DrawAdvanced,   DrawPlugin,
    DrawSphericalWrap, DrawFlatWrap,    DrawCylindricalWrap, DrawLibraryAdd, DrawLibraryDelete,
    DrawLibraryFile};
static_assert(kDrawings.size() == static_cast<std::size_t>(ChannelSign::LibraryFile) + 1);

}  // namespace

QIcon ChannelIcon(ChannelSign sign)
{
    return DrawnIcon(kSide, [sign](QPainter& painter, QIcon::Mode mode) {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor color = QGuiApplication::palette().color(group, QPalette::ButtonText);
        painter.setPen(QPen(color, kPenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        kDrawings[static_cast<std::size_t>(sign)](painter);
    });
}

}  // namespace CorvexMaterial
