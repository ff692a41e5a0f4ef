#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

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
};

inline constexpr std::size_t kAttributeCount =
    static_cast<std::size_t>(Attribute::CustomFields) + 1;

enum class AttributeKind : std::uint8_t {
    Text,
    WholeNumber,   ///< any 32-bit integer
    ListPosition,  ///< 0 to listSize - 1
    Flag,
    Single,
    PackedColour,
    Group,  ///< several numbered keys, with the row's keys as their stems
};

struct AttributeRow {
    Attribute attribute;
    std::string_view currentKey;  ///< of the state kept between runs; empty = none
    std::string_view userKey;     ///< of the user's own default; empty = none
    AttributeKind kind;
    std::string_view factoryText;  ///< canonical for the kind
    std::int32_t listSize = 0;
};

/// Every attribute, in enum order.
[[nodiscard]] const std::array<AttributeRow, kAttributeCount>& AttributeRows();
[[nodiscard]] const AttributeRow& RowOf(Attribute attribute);
[[nodiscard]] std::string_view FactoryText(Attribute attribute);

}  // namespace CorvexMaterial
