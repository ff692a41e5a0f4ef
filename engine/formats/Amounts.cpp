#include "Amounts.h"

#include "MaterialModel.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr float kMiddleSlider = 5.0F;
constexpr float kFirstSlider = 1.0F;
constexpr float kLastSlider = 10.0F;
/// Of a hue: less than two steps of 255.
constexpr float kVisible = 0.007F;
constexpr float kMostTiles = 1000.0F;

float WholeSlider(float slider)
{
    return std::isfinite(slider) ? std::clamp(std::round(slider), kFirstSlider, kLastSlider)
                                 : kMiddleSlider;
}

/// A negative scale is a flip of the positive one.
bool Unflip(float& offset, float& scale)
{
    if (scale >= 0.0F) {
        return false;
    }
    offset += scale;
    scale = -scale;
    return true;
}

/// Without what turning an image upside down and back leaves behind.
float Tidy(float offset)
{
    constexpr float kSteps = 1.0e6F;
    return std::abs(offset) < 8.0F ? std::round(offset * kSteps) / kSteps : offset;
}

bool TilesEvenly(const ImageWindow& window)
{
    return window.scaleU == window.scaleV && window.scaleU <= kMostTiles &&
           Tidy(window.offsetU) == std::floor(Tidy(window.offsetU)) &&
           Tidy(window.offsetV) == std::floor(Tidy(window.offsetV));
}

void TileFlat(float tiles, CorvexDB::udtMaterial& material)
{
    material.Wrap = CorvexDB::WrapType::Flat;
    material.FlatWrap = CorvexDB::FlatWrapType::TileByUnit;
    material.TilesPerUnit = tiles;
}

bool HasTiles(const CorvexDB::udtMaterial& material)
{
    return material.Wrap == CorvexDB::WrapType::Flat &&
           material.FlatWrap == CorvexDB::FlatWrapType::TileByUnit &&
           material.TilesPerUnit > 1.0F && material.TilesPerUnit <= kMostTiles &&
           material.Placement == CorvexDB::TexturePlacement();
}

}  // namespace

float Strongest(Rgb colour)
{
    return std::max({colour.red, colour.green, colour.blue});
}

bool OtherHue(Rgb left, Rgb right)
{
    const float leftMost = Strongest(left);
    const float rightMost = Strongest(right);
    if (leftMost <= 0.0F || rightMost <= 0.0F) {
        return false;
    }
    const Rgb a = left * (1.0F / leftMost);
    const Rgb b = right * (1.0F / rightMost);
    return std::abs(a.red - b.red) > kVisible || std::abs(a.green - b.green) > kVisible ||
           std::abs(a.blue - b.blue) > kVisible;
}

float FractionOf(std::int32_t percent)
{
    return static_cast<float>(std::clamp(percent, 0, 100)) / 100.0F;
}

std::int32_t PercentOf(float fraction)
{
    return static_cast<std::int32_t>(std::lround(100.0F * CutToUnit(fraction)));
}

Share ShareOf(Rgb part, Rgb whole)
{
    constexpr float kRounding = 1.0001F;
    const float partMost = Strongest(part);
    const float wholeMost = Strongest(whole);
    if (!(partMost > 0.0F)) {
        return {};
    }
    const bool exceeds = partMost > wholeMost * kRounding;
    return {exceeds ? 1.0F : CutToUnit(partMost / wholeMost), exceeds, OtherHue(part, whole)};
}

float ShininessOf(float slider)
{
    return kShininess * kMiddleSlider / WholeSlider(slider);
}

float SliderOfShininess(float shininess)
{
    return WholeSlider(shininess > 0.0F ? kShininess * kMiddleSlider / shininess : kLastSlider);
}

float PhysicalRoughnessOf(float slider)
{
    return std::pow(2.0F / (ShininessOf(slider) + 2.0F), 0.25F);
}

float SliderOfPhysicalRoughness(float roughness)
{
    const float fourth = std::pow(CutToUnit(roughness), 4.0F);
    return fourth > 0.0F ? SliderOfShininess(2.0F / fourth - 2.0F) : kFirstSlider;
}

bool SliderReaches(float roughness)
{
    constexpr float kStep = 0.02F;
    return roughness > PhysicalRoughnessOf(kFirstSlider) - kStep &&
           roughness < PhysicalRoughnessOf(kLastSlider) + kStep;
}

float HighlightLeftBy(float roughness)
{
    const float widest = PhysicalRoughnessOf(kLastSlider);
    return CutToUnit((1.0F - CutToUnit(roughness)) / (1.0F - widest));
}

ImageWindow BottomUp(ImageWindow topDown)
{
    topDown.offsetV = 1.0F - topDown.offsetV - topDown.scaleV;
    return topDown;
}

ImageWindow WindowOf(const CorvexDB::udtMaterial& material)
{
    const auto& placement = material.Placement;
    ImageWindow window{placement.originU, placement.originV, placement.scaleU, placement.scaleV};
    if (HasTiles(material)) {
        window.scaleU = window.scaleV = material.TilesPerUnit;
    }
    const auto flip = [](float& offset, float& scale) {
        offset += scale;
        scale = -scale;
    };
    if (material.WrapOrientationU) {
        flip(window.offsetU, window.scaleU);
    }
    if (material.WrapOrientationV) {
        flip(window.offsetV, window.scaleV);
    }
    return window;
}

bool PlaceWindow(ImageWindow window, CorvexDB::udtMaterial& material)
{
    const bool usable = std::isfinite(window.offsetU) && std::isfinite(window.offsetV) &&
                        std::isfinite(window.scaleU) && std::isfinite(window.scaleV);
    if (!usable) {
        return false;
    }
    material.WrapOrientationU = Unflip(window.offsetU, window.scaleU);
    material.WrapOrientationV = Unflip(window.offsetV, window.scaleV);
    if (window.scaleU > 1.0F || window.scaleV > 1.0F) {
        const float tiles = std::min(std::max(window.scaleU, window.scaleV), kMostTiles);
        TileFlat(tiles, material);
        return TilesEvenly(window);
    }
    // Images repeat, so the origin can be brought back into the image.
    const auto inImage = [](float offset) {
        const float tidy = Tidy(offset);
        return tidy - std::floor(tidy);
    };
    material.Placement = {inImage(window.offsetU), inImage(window.offsetV), window.scaleU,
                          window.scaleV};
    return true;
}

}  // namespace studio
