#include "ViewKeys.h"

#include "OrbitMotion.h"

#include <QKeyEvent>

namespace studio {
namespace {

constexpr double kTurnPixels = 20.0;  ///< as if dragged, ten degrees
constexpr double kPanShare = 0.05;    ///< of the view's smaller side

QPointF DirectionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return {-1.0, 0.0};
    case Qt::Key_Right:
        return {1.0, 0.0};
    case Qt::Key_Up:
        return {0.0, -1.0};
    case Qt::Key_Down:
        return {0.0, 1.0};
    default:
        return {};
    }
}

}  // namespace

std::optional<Camera> MovedByKey(const Camera& camera, const QKeyEvent& key, QSizeF size,
                                 float homeDistance)
{
    const auto modifiers =
        key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    const bool isPlain = modifiers == Qt::NoModifier;
    if (const QPointF direction = DirectionOf(key.key()); !direction.isNull()) {
        if (isPlain) {
            return Turned(camera, kTurnPixels * direction, camera.target);
        }
        if (modifiers == Qt::ShiftModifier || modifiers == Qt::ControlModifier) {
            const double pixels = kPanShare * std::min(size.width(), size.height());
            return Panned(camera, pixels * direction, size, camera.target);
        }
        return std::nullopt;
    }
    // The plus of many keyboards needs Shift.
    const bool zooms = isPlain || modifiers == Qt::ShiftModifier;
    if (zooms && (key.key() == Qt::Key_Plus || key.key() == Qt::Key_Equal)) {
        return Zoomed(camera, 1.0F, camera.target, homeDistance);
    }
    if (isPlain && key.key() == Qt::Key_Minus) {
        return Zoomed(camera, -1.0F, camera.target, homeDistance);
    }
    return std::nullopt;
}

}  // namespace studio
