#pragma once

#include "material/Attributes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace CorvexMaterial::SavedStateOrders {

using enum Attribute;

// The orders in which the flows touch the attributes. Programs that watch a store depend on them,
// and on what a flow leaves out.

// clang-format off
/// Current keys. Apply-relative, the raytrace type, the colour pattern and the plug-in are written
/// and never read back.
inline constexpr std::array kLoadOrder{
    PreviewPrimitive, Color, Emissive, Specular, Transparency, Ambient, WrapOrientationU,
    WrapOrientationV, DoubleSided, AlphaTest, AlphaTestReference, WrapType, OverlayTranslucency,
    FlatWrapType, OriginU, OriginV, ScaleU, ScaleV, TilesPerUnit, Texture, TextureAlphaChannelUse,
    AlphaIsTransparent, TextureAlpha, TextureOverlay, TextureBumpmap, TextureSpecularMap,
    TextureEnvironmentMap, RayTraceBrilliance, RayTraceReflection, RayTraceNormalPattern,
    RayTraceNormalSize, RayTraceNormalScale, RayTraceIridescenceFactor,
    RayTraceIridescenceThickness, RayTraceIridescenceTurbulence, RayTraceRoughness,
    RayTraceMetallic, RaytracePredefinedType, RaytracePredefinedMaterial, RaytraceColorPattern0Red,
    RaytraceColorPattern0Green, RaytraceColorPattern0Blue, RaytraceColorPattern1Red,
    RaytraceColorPattern1Green, RaytraceColorPattern1Blue, RaytraceColorPattern2Red,
    RaytraceColorPattern2Green, RaytraceColorPattern2Blue, RaytraceColorPattern3Red,
    RaytraceColorPattern3Green, RaytraceColorPattern3Blue, RaytraceColorPatternFrequency,
    RaytraceColorPatternTurbulence, RaytraceNormalFrequency, RaytraceNormalTurbulence,
    TextureLibrary, MaterialLibrary};

/// Current keys. Custom fields belong to a material, not to the state.
inline constexpr std::array kTerminateOrder{
    Emissive, Specular, Transparency, Ambient, Color, WrapType, ApplyRelative, WrapOrientationU,
    WrapOrientationV, DoubleSided, AlphaTest, AlphaTestReference, OverlayTranslucency, Texture,
    TextureAlphaChannelUse, AlphaIsTransparent, TextureAlpha, TextureOverlay, TextureBumpmap,
    TextureSpecularMap, TextureEnvironmentMap, PreviewPrimitive, OriginU, OriginV, ScaleU, ScaleV,
    FlatWrapType, TilesPerUnit, RayTraceBrilliance, RayTraceReflection, RayTraceNormalPattern,
    RayTraceNormalSize, RayTraceNormalScale, RayTraceIridescenceFactor,
    RayTraceIridescenceThickness, RayTraceIridescenceTurbulence, RayTraceRoughness,
    RayTraceMetallic, RayTraceType, RaytracePredefinedType, RaytracePredefinedMaterial,
    RaytraceColorPattern, RaytraceColorPattern0Red, RaytraceColorPattern0Green,
    RaytraceColorPattern0Blue, RaytraceColorPattern1Red, RaytraceColorPattern1Green,
    RaytraceColorPattern1Blue, RaytraceColorPattern2Red, RaytraceColorPattern2Green,
    RaytraceColorPattern2Blue, RaytraceColorPattern3Red, RaytraceColorPattern3Green,
    RaytraceColorPattern3Blue, RaytraceColorPatternFrequency, RaytraceColorPatternTurbulence,
    RaytraceNormalFrequency, RaytraceNormalTurbulence, Plugin, PluginParameters, TextureLibrary,
    MaterialLibrary};

/// User keys. The libraries are no default of a material.
inline constexpr std::array kRememberOrder{
    Emissive, Specular, Transparency, Ambient, Color, WrapType, ApplyRelative, WrapOrientationU,
    WrapOrientationV, DoubleSided, AlphaTest, AlphaTestReference, OverlayTranslucency, Texture,
    TextureAlphaChannelUse, AlphaIsTransparent, TextureAlpha, TextureOverlay, TextureBumpmap,
    TextureSpecularMap, TextureEnvironmentMap, PreviewPrimitive, OriginU, OriginV, ScaleU, ScaleV,
    FlatWrapType, TilesPerUnit, Plugin, PluginParameters, CustomFields, RayTraceBrilliance,
    RayTraceReflection, RayTraceNormalPattern, RayTraceNormalSize, RayTraceNormalScale,
    RayTraceIridescenceFactor, RayTraceIridescenceThickness, RayTraceIridescenceTurbulence,
    RayTraceRoughness, RayTraceMetallic, RayTraceType, RaytracePredefinedType,
    RaytracePredefinedMaterial, RaytraceColorPattern, RaytraceColorPattern0Red,
    RaytraceColorPattern0Green, RaytraceColorPattern0Blue, RaytraceColorPattern1Red,
    RaytraceColorPattern1Green, RaytraceColorPattern1Blue, RaytraceColorPattern2Red,
    RaytraceColorPattern2Green, RaytraceColorPattern2Blue, RaytraceColorPattern3Red,
    RaytraceColorPattern3Green, RaytraceColorPattern3Blue, RaytraceColorPatternFrequency,
    RaytraceColorPatternTurbulence, RaytraceNormalFrequency, RaytraceNormalTurbulence};

/// User keys. Leaves out four attributes that are remembered.
inline constexpr std::array kUserResetOrder{
    Color, Emissive, Specular, Transparency, Ambient, WrapOrientationU, WrapOrientationV,
    DoubleSided, AlphaTest, AlphaTestReference, WrapType, OverlayTranslucency, FlatWrapType,
    OriginU, OriginV, ScaleU, ScaleV, TilesPerUnit, Texture, TextureAlphaChannelUse,
    AlphaIsTransparent, TextureAlpha, TextureOverlay, TextureBumpmap, TextureSpecularMap,
    TextureEnvironmentMap, Plugin, PluginParameters, CustomFields, RayTraceBrilliance,
    RayTraceReflection, RayTraceNormalPattern, RayTraceNormalSize, RayTraceNormalScale,
    RayTraceIridescenceFactor, RayTraceIridescenceThickness, RayTraceIridescenceTurbulence,
    RayTraceRoughness, RayTraceMetallic, RaytracePredefinedType, RaytracePredefinedMaterial,
    RaytraceColorPattern0Red, RaytraceColorPattern0Green, RaytraceColorPattern0Blue,
    RaytraceColorPattern1Red, RaytraceColorPattern1Green, RaytraceColorPattern1Blue,
    RaytraceColorPattern2Red, RaytraceColorPattern2Green, RaytraceColorPattern2Blue,
    RaytraceColorPattern3Red, RaytraceColorPattern3Green, RaytraceColorPattern3Blue,
    RaytraceColorPatternFrequency, RaytraceColorPatternTurbulence, RaytraceNormalFrequency,
    RaytraceNormalTurbulence};
// clang-format on

constexpr bool EachOnce(auto order)
{
    std::sort(order.begin(), order.end());
    return std::adjacent_find(order.begin(), order.end()) == order.end();
}

static_assert(kLoadOrder.size() == 57 && EachOnce(kLoadOrder));
static_assert(kTerminateOrder.size() == kAttributeCount - 1 && EachOnce(kTerminateOrder));
static_assert(kRememberOrder.size() == kAttributeCount - 2 && EachOnce(kRememberOrder));
static_assert(kUserResetOrder.size() == kRememberOrder.size() - 4 && EachOnce(kUserResetOrder));

}  // namespace CorvexMaterial::SavedStateOrders
