#pragma once

#include "host/MaterialRecord.h"
#include "raytrace/SketchPatterns.h"
#include "record/Looks.h"

#include <array>

namespace CorvexMaterial {

/// Linear light.
struct SketchColour {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

[[nodiscard]] constexpr SketchColour operator+(SketchColour a, SketchColour b)
{
    return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}
[[nodiscard]] constexpr SketchColour operator*(SketchColour a, SketchColour b)
{
    return {a.red * b.red, a.green * b.green, a.blue * b.blue};
}
[[nodiscard]] constexpr SketchColour operator*(SketchColour a, float factor)
{
    return {a.red * factor, a.green * factor, a.blue * factor};
}
[[nodiscard]] constexpr SketchColour Mix(SketchColour a, SketchColour b, float t)
{
    return a * (1.0F - t) + b * t;
}

/// Of a colour as it is stored, red in the low byte.
[[nodiscard]] SketchColour LinearOf(Colour colour);

/// Everything that the sketch draws of a material.
struct SketchLook {
    ColorPattern pattern = ColorPattern::None;
    PatternSetting patternSetting;
    /// Along the pattern; the first alone without one.
    std::array<SketchColour, 4> colours{};
    NormalPattern normal = NormalPattern::None;
    PatternSetting normalSetting;
    float normalDepth = 0.0F;
    float glow = 0.0F;  ///< how much of the colour shows without any light
    float brilliance = 1.0F;
    float highlight = 0.0F;
    float shininess = 60.0F;
    float reflection = 0.0F;
    bool metallic = false;
    float iridescence = 0.0F;
    float filmThickness = 0.5F;
    float clearness = 0.0F;  ///< how much of what is behind shows, in the colour
};

[[nodiscard]] SketchLook LookOf(const CorvexDB::udtMaterial& material);

/// The look of one of the 80 predefined materials; a position outside the lists gives a plain one.
[[nodiscard]] SketchLook SketchOf(std::int32_t type, std::int32_t index);

}  // namespace CorvexMaterial
