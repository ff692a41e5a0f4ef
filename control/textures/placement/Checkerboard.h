#pragma once

#include <QPainter>

namespace CorvexMaterial {

/// The ground that translucent pictures are shown on.
inline void PaintCheckerboard(QPainter& painter, const QRect& area)
{
    constexpr int kCell = 8;
    const QColor light(0xff, 0xff, 0xff);
    const QColor dark(0xcc, 0xcc, 0xcc);
    painter.fillRect(area, light);
    for (int y = 0; y < area.height(); y += kCell) {
        for (int x = y / kCell % 2 * kCell; x < area.width(); x += 2 * kCell) {
            painter.fillRect(QRect(area.left() + x, area.top() + y, kCell, kCell) & area, dark);
        }
    }
}

}  // namespace CorvexMaterial
