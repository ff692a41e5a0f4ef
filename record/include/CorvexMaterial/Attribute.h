#pragma once

// For hosts too: standard C++17, nothing but the standard library.

#include <cstddef>
#include <cstdint>

namespace CorvexMaterial {

/// What a material consists of, and what its panel keeps beside it.
enum class Attribute : std::uint8_t {
    PreviewPrimitive,
    Color,
    Emissive,
    Specular,
    Transparency,
    Ambient,
    WrapOrientationU,
    WrapOrientationV,
    DoubleSided,
    AlphaTest,
    AlphaTestReference,
    WrapType,
    OverlayTranslucency,
    FlatWrapType,
    OriginU,
    OriginV,
    ScaleU,
    ScaleV,
    TilesPerUnit,
    Texture,
    TextureAlphaChannelUse,
    AlphaIsTransparent,
    TextureAlpha,
    TextureOverlay,
    TextureBumpmap,
    TextureSpecularMap,
    TextureEnvironmentMap,
    RayTraceBrilliance,
    RayTraceReflection,
    RayTraceNormalPattern,
    RayTraceNormalSize,
    RayTraceNormalScale,
    RayTraceIridescenceFactor,
    RayTraceIridescenceThickness,
    RayTraceIridescenceTurbulence,
    RayTraceRoughness,
    RayTraceMetallic,
    RaytracePredefinedType,
    RaytracePredefinedMaterial,
    RaytraceColorPattern0Red,
    RaytraceColorPattern0Green,
    RaytraceColorPattern0Blue,
    RaytraceColorPattern1Red,
    RaytraceColorPattern1Green,
    RaytraceColorPattern1Blue,
    RaytraceColorPattern2Red,
    RaytraceColorPattern2Green,
    RaytraceColorPattern2Blue,
    RaytraceColorPattern3Red,
    RaytraceColorPattern3Green,
    RaytraceColorPattern3Blue,
    RaytraceColorPatternFrequency,
    RaytraceColorPatternTurbulence,
    RaytraceNormalFrequency,
    RaytraceNormalTurbulence,
    TextureLibrary,
    MaterialLibrary,
    ApplyRelative,
    RayTraceType,
    RaytraceColorPattern,
    Plugin,
    PluginParameters,
    CustomFields,
    RaytraceColorPattern0Alpha,
    RaytraceColorPattern1Alpha,
    RaytraceColorPattern2Alpha,
    RaytraceColorPattern3Alpha,
};

inline constexpr std::size_t kAttributeCount =
    static_cast<std::size_t>(Attribute::RaytraceColorPattern3Alpha) + 1;

}  // namespace CorvexMaterial
