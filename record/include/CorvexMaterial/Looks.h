#pragma once

// The catalogue of what only a raytracer shows: predefined materials, colour patterns and normal
// patterns. Each is one row, which everything about it stands in. A material stores positions in
// these lists, so their orders are binding.

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/RaytraceAttributes.h>
#include <CorvexMaterial/RowRange.h>
#include <CorvexMaterial/Vector.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

enum class MaterialType : std::int32_t { Custom, Predefined };

enum class PredefinedType : std::int32_t { Glass, Metal, Stone, Wood, Miscellaneous };

enum class ColorPattern : std::int32_t {
    None,
    Agate,
    Boxed,
    Bozo,
    Cells,
    Checker,
    Crackle,
    Cylindrical,
    Dents,
    Gradient,
    Granite,
    Leopard,
    Marble,
    Onion,
    Planar,
    Quilted,
    Radial,
    Ripples,
    Spherical,
    Spiral1,
    Spiral2,
    Waves,
    Wood,
    Wrinkles,
};

enum class NormalPattern : std::int32_t {
    None,
    Bumps,
    Dents,
    Ripples,
    Wrinkles,
    Bozo,
    Checker,
    Crackle,
    Granite,
    Hexagon,
    Onion,
    Quilted,
    Spiral1,
    Spiral2,
    Waves,
};

inline constexpr std::array<std::string_view, 2> kMaterialTypeNames{"Custom", "Predefined"};
inline constexpr std::array<std::string_view, 5> kPredefinedTypeNames{"Glass", "Metal", "Stone",
                                                                      "Wood", "Miscellaneous"};

/// A stock texture of POV-Ray's include files.
struct PovRayStock {
    std::string_view include;  ///< file name
    std::string_view text;     ///< inside of a `material` block
    float scale = 1.0F;        ///< in the space of a shape whose longest side runs from -1 to 1
};

/// Colour, reflection and clearness stand for the material where POV-Ray's texture does not exist.
struct PredefinedLook {
    PredefinedType type;
    std::int32_t position;  ///< among those of its type
    std::string_view name;
    std::uint32_t colour;  ///< 0xRRGGBB as a screen shows it; the mean of one with a pattern
    float reflection;      ///< of what is around, 0 to 1
    float clearness;       ///< how much of what is behind shows, 0 to 1
    PovRayStock povRay;
};

/// A pattern of POV-Ray, laid into the same space as a stock texture.
struct PovRayPattern {
    std::string_view text;  ///< empty for "None"
    bool blocks = false;    ///< areas side by side, no gradual change: no frequency as colours
    float scale = 1.0F;
    Vector3<float> place{};  ///< of the pattern's origin
    float strength = 1.0F;   ///< of a normal pattern: POV-Ray's own slopes differ widely
    float frequency = 1.0F;  ///< of a normal pattern: waves within its scale
};

struct ColorPatternLook {
    ColorPattern pattern;
    std::string_view name;
    PovRayPattern povRay;
};

struct NormalPatternLook {
    NormalPattern pattern;
    std::string_view name;
    PovRayPattern povRay;
};

[[nodiscard]] constexpr bool IsPredefined(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return attributes.MaterialType == static_cast<std::int32_t>(MaterialType::Predefined);
}

/// The predefined materials of a type, in the order of their positions; none for a type outside its
/// list.
[[nodiscard]] RowRange<PredefinedLook> PredefinedLooks(std::int32_t type);
/// What the attributes name; null when they are custom, or name what no list has.
[[nodiscard]] const PredefinedLook*
PredefinedLookOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);

[[nodiscard]] RowRange<ColorPatternLook> ColorPatternLooks();
[[nodiscard]] RowRange<NormalPatternLook> NormalPatternLooks();
/// Null for "None" and for a position outside the list.
[[nodiscard]] const PovRayPattern* FindColourPattern(std::int32_t position);
[[nodiscard]] const PovRayPattern* FindNormalPattern(std::int32_t position);

/// One colour of a pattern.
[[nodiscard]] Rgb LightOf(const CorvexDB::PatternColour& colour);
/// The mean of those that the colour pattern uses; white without one.
[[nodiscard]] Rgb MeanPatternLight(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);

}  // namespace CorvexMaterial
