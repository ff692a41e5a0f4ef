#pragma once

// The formulas between our amounts and those of other formats; docs/interchange.md says which
// format uses which. What the amounts mean as light is written in studio/render/MaterialModel.h.

#include <CorvexMaterial/MaterialRecord.h>

#include <cstdint>
#include <optional>

namespace studio {

using CorvexMaterial::ColourOfDisplayed;
using CorvexMaterial::ColourOfLight;
using CorvexMaterial::CutToUnit;
using CorvexMaterial::DisplayedOf;
using CorvexMaterial::LightOf;
using CorvexMaterial::Rgb;

inline constexpr Rgb kBlack{};
inline constexpr Rgb kWhiteRgb{1.0F, 1.0F, 1.0F};

[[nodiscard]] float Strongest(Rgb colour);
/// Whether the two differ in more than their strength, visibly.
[[nodiscard]] bool OtherHue(Rgb left, Rgb right);
[[nodiscard]] inline bool IsGrey(Rgb colour)
{
    return !OtherHue(colour, kWhiteRgb);
}

[[nodiscard]] float FractionOf(std::int32_t percent);
[[nodiscard]] std::int32_t PercentOf(float fraction);

/// How much of a surface's own colour another colour is, for light that a surface gives off: the
/// emissive and the ambient amount are such shares.
struct Share {
    float share = 0.0F;     ///< 0 to 1
    bool exceeds = false;   ///< it is stronger than the surface's colour can be
    bool otherHue = false;  ///< it has a colour of its own
};
[[nodiscard]] Share ShareOf(Rgb part, Rgb whole);

/// The roughness slider, 1 to 10, sets the width of a highlight. Its middle, 5, is the highlight of
/// the preview: cos^60, kShininess in MaterialModel.h. The exponent halves as the slider doubles.
[[nodiscard]] float ShininessOf(float slider);
/// A whole number 1 to 10.
[[nodiscard]] float SliderOfShininess(float shininess);
/// Roughness of a physical surface (alpha squared) whose highlight is as wide:
/// (2 / (shininess + 2))^(1/4).
[[nodiscard]] float PhysicalRoughnessOf(float slider);
[[nodiscard]] float SliderOfPhysicalRoughness(float roughness);
/// Whether the slider reaches the roughness, give or take.
[[nodiscard]] bool SliderReaches(float roughness);
/// 1 as far as the slider reaches, then down to 0 for the roughest: a highlight so wide that it is
/// no highlight any more.
[[nodiscard]] float HighlightLeftBy(float roughness);

/// The part of an image that fills one tile: image = offset + scale * tile. Flips are negative
/// scales. Bottom: both count from the image's bottom, as most formats do; ours from its top.
struct ImageWindow {
    float offsetU = 0.0F;
    float offsetV = 0.0F;
    float scaleU = 1.0F;
    float scaleV = 1.0F;

    [[nodiscard]] bool IsWhole() const { return *this == ImageWindow(); }
    bool operator==(const ImageWindow&) const = default;
};
[[nodiscard]] ImageWindow BottomUp(ImageWindow topDown);
[[nodiscard]] inline ImageWindow TopDown(ImageWindow bottomUp)
{
    return BottomUp(bottomUp);
}

/// Placement, flips and, for flat wraps by unit, the tiles per unit; from the top.
[[nodiscard]] ImageWindow WindowOf(const CorvexDB::udtMaterial& material);
/// A scale beyond the image becomes tiles per unit of a flat wrap. False when the window is not
/// quite kept; the material is left alone when it holds what is no number.
bool PlaceWindow(ImageWindow topDown, CorvexDB::udtMaterial& material);

}  // namespace studio
