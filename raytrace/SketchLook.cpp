#include "raytrace/SketchLook.h"

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr float kMostPosition = 10.0F;

float Decoded(float encoded)
{
    return encoded <= 0.04045F ? encoded / 12.92F : std::pow((encoded + 0.055F) / 1.055F, 2.4F);
}

float PositionIn(float stored)
{
    return std::isfinite(stored) ? std::clamp(stored, 0.0F, kMostPosition) : 0.0F;
}

float TenthOf(float stored)
{
    return PositionIn(stored) / kMostPosition;
}

/// 1 at position 5, growing by the factor with each step.
float AroundFive(float stored, float factor)
{
    return std::pow(factor, std::max(PositionIn(stored), 1.0F) - 5.0F);
}

float PercentOf(std::int32_t amount)
{
    return static_cast<float>(std::clamp(amount, 0, 100)) / 100.0F;
}

SketchColour LinearOf(const CorvexDB::PatternColour& colour)
{
    const auto part = [](float encoded) {
        return std::isfinite(encoded) ? Decoded(std::clamp(encoded, 0.0F, 1.0F)) : 0.0F;
    };
    return {part(colour.red), part(colour.green), part(colour.blue)};
}

void TakePatterns(SketchLook& look, const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    look.pattern = static_cast<ColorPattern>(attributes.ColorPattern);
    look.patternSetting = {1.0F + PositionIn(attributes.ColorPatternFrequency),
                           TenthOf(attributes.ColorPatternTurbulence), 1.0F};
    if (attributes.ColorPattern != 0) {
        const SketchColour base = look.colours.front();
        for (std::size_t i = 0; i < look.colours.size(); ++i) {
            look.colours[i] = base * LinearOf(attributes.ColorPatternColor[i]);
        }
    }
    look.normal = static_cast<NormalPattern>(attributes.NormalPattern);
    look.normalDepth = TenthOf(attributes.NormalDepth);
    look.normalSetting = {1.0F + PositionIn(attributes.NormalPatternFrequency),
                          TenthOf(attributes.NormalPatternTurbulence),
                          0.02F + 0.04F * PositionIn(attributes.NormalScale)};
}

}  // namespace

SketchColour LinearOf(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    const auto part = [](int byte) { return Decoded(static_cast<float>(byte) / 255.0F); };
    return {part(bytes.red), part(bytes.green), part(bytes.blue)};
}

SketchLook LookOf(const CorvexDB::udtMaterial& material)
{
    const CorvexDB::cdtRayTraceMaterialAttributes& attributes = material.RayTrace;
    if (attributes.MaterialType == static_cast<std::int32_t>(MaterialType::Predefined)) {
        return SketchOf(attributes.PredefinedType, attributes.PreDefinedMaterial);
    }
    SketchLook look;
    look.colours.fill(LinearOf(material.Color));
    look.glow = std::clamp(Decoded(PercentOf(material.Emissive)) +
                               0.3F * Decoded(PercentOf(material.Ambient)),
                           0.0F, 1.0F);
    look.highlight = 0.9F * PercentOf(material.Specular);
    look.clearness = PercentOf(material.Transparency);
    look.brilliance = AroundFive(attributes.Brilliance, 1.32F);
    look.shininess = 60.0F / AroundFive(attributes.Roughness, 1.68F);
    look.reflection = TenthOf(attributes.Reflection);
    look.metallic = attributes.Metallic;
    look.iridescence = 0.5F * TenthOf(attributes.IridescenceFactor);
    look.filmThickness = TenthOf(attributes.IridescenceThickness);
    TakePatterns(look, attributes);
    return look;
}

}  // namespace CorvexMaterial
