#pragma once

#include "TexturePlacement.h"
#include <CorvexMaterial/MaterialRecord.h>

namespace CorvexMaterial {

// Changing a crop rectangle that is there already. All numbers are fractions of the image.

struct CropRect {
    double left = 0.0;
    double top = 0.0;
    double right = 1.0;
    double bottom = 1.0;
};

/// The placement's rectangle with its corners in order, mirrored or not.
[[nodiscard]] CropRect RectOf(const CorvexDB::TexturePlacement& placement);
[[nodiscard]] CropTexts TextsOf(const CropRect& rect);

/// The sides that a hand holds: none nothing, two a corner, all four the whole rectangle.
struct CropGrip {
    bool left = false;
    bool top = false;
    bool right = false;
    bool bottom = false;

    [[nodiscard]] bool HoldsAnything() const { return left || top || right || bottom; }
    [[nodiscard]] bool HoldsAll() const { return left && top && right && bottom; }
    bool operator==(const CropGrip&) const = default;
};

/// What lies at a point: a side no farther than `reach`, else the whole rectangle from inside.
[[nodiscard]] CropGrip GripAt(const CropRect& rect, PicturePoint at, PicturePoint reach);
/// The rectangle after its grip went this far; it stays on the image and its corners in order.
[[nodiscard]] CropRect Pulled(const CropRect& rect, CropGrip grip, PicturePoint distance);

}  // namespace CorvexMaterial
