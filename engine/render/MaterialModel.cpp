#include "MaterialModel.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

constexpr std::array<std::string_view, 8> kAlphaComparisons{
    "", "<", "==", "<=", ">", "!=", ">=", ""};

float Fraction(std::int32_t percent)
{
    return static_cast<float>(std::clamp(percent, 0, 100)) / 100.0F;
}

}  // namespace

SurfaceTerms SurfaceTermsOf(const CorvexDB::udtMaterial& material)
{
    const float emissive = LinearFromEncoded(Fraction(material.Emissive));
    const float ambient = kShadowFill * LinearFromEncoded(Fraction(material.Ambient));
    const float specular = Fraction(material.Specular);
    SurfaceTerms terms;
    terms.base = LightOf(material.Color);
    terms.emission = emissive + (1.0F - emissive) * ambient;
    terms.diffuse = (1.0F - emissive) * (1.0F - ambient) * (1.0F - kSpecularCost * specular);
    terms.highlight = kShine * specular;
    terms.highlightCost = kSpecularCost * specular;
    terms.opacity = 1.0F - Fraction(material.Transparency);
    return terms;
}

SurfaceTerms HighlightMappedTermsOf(const CorvexDB::udtMaterial& material)
{
    CorvexDB::udtMaterial mapped = material;
    mapped.Specular = material.Specular > 0 ? material.Specular : 100;
    return SurfaceTermsOf(mapped);
}

float OverlayOpacityOf(const CorvexDB::udtMaterial& material)
{
    const float percent =
        std::isfinite(material.OverlayTranslucency) ? material.OverlayTranslucency : 50.0F;
    return 1.0F - std::clamp(percent, 0.0F, 100.0F) / 100.0F;
}

AlphaTest AlphaTestOf(const CorvexDB::udtMaterial& material)
{
    const auto position = static_cast<std::size_t>(std::max(material.AlphaTest, 0));
    if (position >= kAlphaComparisons.size() || kAlphaComparisons[position].empty()) {
        return {};
    }
    return {kAlphaComparisons[position], std::clamp(material.AlphaTestReference, 0, 255)};
}

bool IsTransparent(const CorvexDB::udtMaterial& material)
{
    return material.Transparency > 0;
}

}  // namespace studio
