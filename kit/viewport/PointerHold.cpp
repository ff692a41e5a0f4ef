#include "PointerHold.h"

#include "OrbitMotion.h"

namespace studio {
namespace {

constexpr float kPixelsPerZoomStep = 15.0F;

}  // namespace

Qt::CursorShape PointerHold::Cursor() const
{
    switch (action) {
    case ViewAction::Orbit:
        return Qt::ClosedHandCursor;
    case ViewAction::Pan:
        return Qt::SizeAllCursor;
    case ViewAction::Zoom:
        return Qt::SizeVerCursor;
    case ViewAction::Box:
        return Qt::CrossCursor;
    case ViewAction::None:
        break;
    }
    return Qt::ArrowCursor;
}

Camera PointerHold::Moved(const Camera& camera, QPointF pixels, QSizeF size,
                          float homeDistance) const
{
    switch (action) {
    case ViewAction::Orbit:
        return Turned(camera, pixels, held);
    case ViewAction::Pan:
        return Panned(camera, pixels, size, held);
    case ViewAction::Zoom:
        return Zoomed(camera, -static_cast<float>(pixels.y()) / kPixelsPerZoomStep, held,
                      homeDistance);
    case ViewAction::Box:
    case ViewAction::None:
        break;
    }
    return camera;
}

}  // namespace studio
