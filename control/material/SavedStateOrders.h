#pragma once

#include "SchemaTable.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace CorvexMaterial::SavedStateOrders {

using enum Attribute;

// The orders in which the flows touch the attributes. Programs that watch a store depend on them,
// and on what a flow leaves out.

/// From the first to the last, in the order of the schema.
template <Attribute First, Attribute Last>
consteval auto Run()
{
    std::array<Attribute, static_cast<std::size_t>(Last) - static_cast<std::size_t>(First) + 1>
        run{};
    for (std::size_t i = 0; i < run.size(); ++i) {
        run[i] = static_cast<Attribute>(static_cast<std::size_t>(First) + i);
    }
    return run;
}

template <std::size_t... Sizes>
consteval auto Joined(const std::array<Attribute, Sizes>&... parts)
{
    std::array<Attribute, (Sizes + ...)> order{};
    auto end = order.begin();
    ((end = std::copy(parts.begin(), parts.end(), end)), ...);
    return order;
}

template <typename... Attributes>
consteval auto List(Attributes... attributes)
{
    return std::array<Attribute, sizeof...(Attributes)>{attributes...};
}

constexpr Attribute kLastOfTheFirst = RaytraceColorPattern3Alpha;

/// What came later comes last, in every order that its keys are for.
template <std::string_view AttributeRow::*Key>
consteval auto Later()
{
    constexpr auto kIsLater = [](const AttributeRow& row) {
        return row.attribute > kLastOfTheFirst && !(row.*Key).empty();
    };
    std::array<Attribute, static_cast<std::size_t>(
                              std::count_if(schema::kRows.begin(), schema::kRows.end(), kIsLater))>
        later{};
    auto* end = later.data();
    for (const AttributeRow& row : schema::kRows) {
        if (kIsLater(row)) {
            *end++ = row.attribute;
        }
    }
    return later;
}
inline constexpr auto kLater = Later<&AttributeRow::currentKey>();
inline constexpr auto kLaterOfUser = Later<&AttributeRow::userKey>();

/// Current keys. Apply-relative, the raytrace type, the colour pattern and the plug-in are written
/// and never read back.
inline constexpr auto kLoadOrder = Joined(Run<PreviewPrimitive, RaytraceNormalTurbulence>(),
                                          List(TextureLibrary, MaterialLibrary), kLater);

inline constexpr auto kWritten =
    Joined(Run<Emissive, Ambient>(), List(Color, WrapType, ApplyRelative),
           Run<WrapOrientationU, AlphaTestReference>(), List(OverlayTranslucency),
           Run<Texture, TextureEnvironmentMap>(), List(PreviewPrimitive), Run<OriginU, ScaleV>(),
           List(FlatWrapType, TilesPerUnit));
inline constexpr auto kWrittenOfRaytracer =
    Joined(Run<RayTraceBrilliance, RayTraceMetallic>(), List(RayTraceType),
           Run<RaytracePredefinedType, RaytracePredefinedMaterial>(), List(RaytraceColorPattern),
           Run<RaytraceColorPattern0Red, RaytraceNormalTurbulence>());

/// Current keys. Custom fields belong to a material, not to the state.
inline constexpr auto kTerminateOrder =
    Joined(kWritten, kWrittenOfRaytracer,
           List(Plugin, PluginParameters, TextureLibrary, MaterialLibrary), kLater);

/// User keys. The libraries are no default of a material.
inline constexpr auto kRememberOrder = Joined(
    kWritten, List(Plugin, PluginParameters, CustomFields), kWrittenOfRaytracer, kLaterOfUser);

/// User keys. Leaves out four attributes that are remembered.
inline constexpr auto kUserResetOrder =
    Joined(Run<Color, TextureEnvironmentMap>(), List(Plugin, PluginParameters, CustomFields),
           Run<RayTraceBrilliance, RaytraceNormalTurbulence>(), kLaterOfUser);

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
