#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace CorvexMaterial {

/// What a material may have and a raytracer may be unable to show. The first eight are groups of
/// the raytrace attributes, which their dialog disables as a whole.
enum class RaytraceOption : std::uint8_t {
    Brilliance,
    Reflection,
    Roughness,
    Metallic,
    Iridescence,
    ColorPattern,
    NormalPattern,
    PredefinedMaterial,
    AlphaMap,
    BumpMap,
    PatternedBump,
    SpecularMap,
    OtherEnvironment,
    EnvironmentOnImage,
};

/// A material on a shape, with what its record alone does not tell.
struct ShownMaterial {
    const CorvexDB::udtMaterial& material;
    bool primaryHasAlpha = false;  ///< the primary texture's file has an alpha channel
    std::string environment;       ///< the first environment map of the scene
};

struct OptionRow {
    RaytraceOption option;
    std::string_view text;  ///< for a person, plural
    bool (*used)(const ShownMaterial& shown);
};

/// In enum order.
[[nodiscard]] std::span<const OptionRow> OptionRows();

/// The environment map that the material mirrors; empty when it is a predefined one, which mirrors
/// whatever there is.
[[nodiscard]] std::string EnvironmentOf(const CorvexDB::udtMaterial& material);

}  // namespace CorvexMaterial
