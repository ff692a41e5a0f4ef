#include "CropGrip.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace CorvexMaterial {

namespace {

struct Span {
    double low;
    double high;
};

struct Hold {
    bool low = false;
    bool high = false;
};

Span Ordered(double a, double b)
{
    return {std::min(a, b), std::max(a, b)};
}

bool IsNear(double a, double b, double reach)
{
    return std::abs(a - b) <= reach;
}

Hold HoldAt(Span span, double at, double reach)
{
    Hold hold{IsNear(at, span.low, reach), IsNear(at, span.high, reach)};
    if (hold.low && hold.high) {
        // Both ends of a narrow span are within reach; the nearer one is meant.
        hold.low = std::abs(at - span.low) < std::abs(at - span.high);
        hold.high = !hold.low;
    }
    return hold;
}

bool Covers(Span span, double at, double reach)
{
    return at >= span.low - reach && at <= span.high + reach;
}

Span Shifted(Span span, double distance)
{
    const double extent = std::min(span.high - span.low, 1.0);
    const double low = std::clamp(span.low + distance, 0.0, 1.0 - extent);
    return {low, low + extent};
}

Span Pulled(Span span, Hold hold, double distance)
{
    if (hold.low && hold.high) {
        return Shifted(span, distance);
    }
    const auto pull = [distance](double end, bool held) {
        return held ? std::clamp(end + distance, 0.0, 1.0) : end;
    };
    return Ordered(pull(span.low, hold.low), pull(span.high, hold.high));
}

}  // namespace

CropRect RectOf(const CorvexDB::TexturePlacement& placement)
{
    const double left = placement.originU;
    const double top = placement.originV;
    const Span across = Ordered(left, left + placement.scaleU);
    const Span down = Ordered(top, top + placement.scaleV);
    return {across.low, down.low, across.high, down.high};
}

CropTexts TextsOf(const CropRect& rect)
{
    const auto text = [](double value) { return TextOfFraction(static_cast<float>(value)); };
    return Clamped({text(rect.left), text(rect.top), text(rect.right - rect.left),
                    text(rect.bottom - rect.top)});
}

CropGrip GripAt(const CropRect& rect, PicturePoint at, PicturePoint reach)
{
    const Span across{rect.left, rect.right};
    const Span down{rect.top, rect.bottom};
    if (!Covers(across, at.x, reach.x) || !Covers(down, at.y, reach.y)) {
        return {};
    }
    const Hold horizontal = HoldAt(across, at.x, reach.x);
    const Hold vertical = HoldAt(down, at.y, reach.y);
    const CropGrip grip{horizontal.low, vertical.low, horizontal.high, vertical.high};
    return grip.HoldsAnything() ? grip : CropGrip{true, true, true, true};
}

CropRect Pulled(const CropRect& rect, CropGrip grip, PicturePoint distance)
{
    const Span across = Pulled(Span{rect.left, rect.right}, {grip.left, grip.right}, distance.x);
    const Span down = Pulled(Span{rect.top, rect.bottom}, {grip.top, grip.bottom}, distance.y);
    return {across.low, down.low, across.high, down.high};
}

}  // namespace CorvexMaterial
