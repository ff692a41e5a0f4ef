#pragma once

#include "record/SchemaTable.h"

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

/// Whether every attribute with such a key is in the order, or left out on purpose.
consteval bool Covers(const auto& order, std::string_view AttributeRow::*key, std::size_t leftOut)
{
    std::size_t inOrder = 0;
    std::size_t withKey = 0;
    for (const AttributeRow& row : schema::kRows) {
        const bool hasKey = !(row.*key).empty();
        const bool isIn = std::find(order.begin(), order.end(), row.attribute) != order.end();
        if (isIn && !hasKey) {
            return false;
        }
        inOrder += isIn ? 1 : 0;
        withKey += hasKey ? 1 : 0;
    }
    return EachOnce(order) && inOrder + leftOut == withKey;
}

static_assert(Covers(kLoadOrder, &AttributeRow::currentKey, 5));
static_assert(Covers(kTerminateOrder, &AttributeRow::currentKey, 0));
static_assert(Covers(kRememberOrder, &AttributeRow::userKey, 0));
static_assert(Covers(kUserResetOrder, &AttributeRow::userKey, 4));

}  // namespace CorvexMaterial::SavedStateOrders
