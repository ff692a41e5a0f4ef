#pragma once

#include <QColor>
#include <QPainter>

namespace CorvexDB {
struct udtMaterial;
}

namespace studio {

enum class FlagSign { Shown, Hidden, Unlocked, Locked, Linked };

/// In the middle of the area, as large as the smaller side lets it be.
void DrawFlag(QPainter& painter, const QRectF& area, FlagSign sign, const QColor& colour);

/// A little ball of the material.
void DrawSwatch(QPainter& painter, const QRectF& area, const CorvexDB::udtMaterial& material);

}  // namespace studio
