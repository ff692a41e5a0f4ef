#include "StudioIcon.h"

#include <QRadialGradient>

namespace studio {
namespace {

// The same in every theme: the icon stands among those of others.
const QColor kBall(0x4C, 0x9B, 0xE8);

void PaintTile(QPainter& painter)
{
    QLinearGradient tile(0.0, 0.0, 0.0, 1.0);
    tile.setColorAt(0.0, QColor(0x3A3F46));
    tile.setColorAt(1.0, QColor(0x1F2226));
    painter.setBrush(tile);
    painter.drawRoundedRect(QRectF(0.03, 0.03, 0.94, 0.94), 0.2, 0.2);
}

void PaintBall(QPainter& painter)
{
    QRadialGradient light(QPointF(0.5, 0.5), 0.34, QPointF(0.38, 0.36));
    light.setColorAt(0.0, QColor(0xFFFFFF));
    light.setColorAt(0.25, kBall.lighter(140));
    light.setColorAt(0.7, kBall);
    light.setColorAt(1.0, kBall.darker(280));
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0.5, 0.5), 0.33, 0.33);
}

QPixmap Picture(int size)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size, size);
    painter.setPen(Qt::NoPen);
    PaintTile(painter);
    PaintBall(painter);
    return picture;
}

}  // namespace

QIcon StudioIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        icon.addPixmap(Picture(size));
    }
    return icon;
}

}  // namespace studio
