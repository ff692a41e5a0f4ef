#include "studio/raytrace/RibSurface.h"

#include "studio/raytrace/Quoting.h"
#include "studio/raytrace/RaytraceAmounts.h"
#include "studio/render/MaterialModel.h"

#include <algorithm>
#include <array>

namespace studio {
namespace {

/// What stands in for a stock texture of POV-Ray: its kind's usual look.
struct StockLook {
    LinearColour colour;
    float opacity;
    bool metallic;
};
constexpr std::array kStockLooks{
    StockLook{{0.80F, 0.90F, 0.88F}, 0.25F, false},  // glass
    StockLook{{0.55F, 0.50F, 0.40F}, 1.0F, true},    // metal
    StockLook{{0.40F, 0.38F, 0.36F}, 1.0F, false},   // stone
    StockLook{{0.35F, 0.17F, 0.06F}, 1.0F, false},   // wood
    StockLook{{0.40F, 0.50F, 0.65F}, 1.0F, false},   // miscellaneous
};

struct Look {
    LinearColour colour;
    SurfaceTerms terms;
    RaytraceAmounts amounts;
};

/// The middle of a pattern's four colours, of which the standard shaders know nothing.
LinearColour PatternColour(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    LinearColour sum;
    const auto part = [](float encoded) {
        return LinearFromEncoded(std::clamp(encoded, 0.0F, 1.0F)) / 4.0F;
    };
    for (const CorvexDB::PatternColour& colour : attributes.ColorPatternColor) {
        sum.red += part(colour.red);
        sum.green += part(colour.green);
        sum.blue += part(colour.blue);
    }
    return sum;
}

Look LookOf(const CorvexDB::udtMaterial& material)
{
    const auto& attributes = material.RayTrace;
    Look look{{}, SurfaceTermsOf(material), AmountsOf(attributes)};
    look.colour = look.terms.base;
    const auto type = static_cast<std::size_t>(attributes.PredefinedType);
    if (attributes.MaterialType == 1 && type < kStockLooks.size()) {
        look.colour = kStockLooks[type].colour;
        look.terms.opacity = kStockLooks[type].opacity;
        look.amounts.metallic = kStockLooks[type].metallic;
        look.terms.highlight = kShine;
    } else if (attributes.ColorPattern != 0) {
        const LinearColour pattern = PatternColour(attributes);
        look.colour = {look.colour.red * pattern.red, look.colour.green * pattern.green,
                       look.colour.blue * pattern.blue};
    }
    return look;
}

void WriteParameter(TextStream& out, const char* name, float value)
{
    out << " \"float " << name << "\" [" << value << ']';
}

/// `metal` has no diffuse part, so that a metallic surface without highlight stays dull.
const char* ShaderOf(const Look& look, const SurfaceImages& images)
{
    if (images.set.Has(Layer::Environment)) {
        return "shinymetal";
    }
    if (images.set.Has(Layer::Primary)) {
        return "paintedplastic";
    }
    if (look.terms.highlight <= 0.0F) {
        return "matte";
    }
    return look.amounts.metallic ? "metal" : "plastic";
}

}  // namespace

void WriteRibSurface(TextStream& out, const FrameItem& item, const SurfaceImages& images)
{
    static const CorvexDB::udtMaterial kDefault;
    const Look look = LookOf(item.material ? *item.material : kDefault);
    const std::string_view shader = ShaderOf(look, images);
    out << "Color [" << look.colour.red << ' ' << look.colour.green << ' ' << look.colour.blue
        << "]\nOpacity [" << look.terms.opacity << ' ' << look.terms.opacity << ' '
        << look.terms.opacity << "]\nSurface \"" << shader << '"';
    WriteParameter(out, "Ka", look.terms.emission + look.terms.diffuse * kSkyIntensity / 2.0F);
    const bool metallic = shader == "metal" || shader == "shinymetal";
    if (!metallic) {
        WriteParameter(out, "Kd", look.terms.diffuse);
    }
    if (shader != "matte") {
        WriteParameter(
            out, "Ks",
            std::max(look.terms.highlight / kKeyLight.intensity, metallic ? 0.5F : 0.0F));
        WriteParameter(out, "roughness", 1.0F / look.amounts.shininess);
    }
    if (shader == "shinymetal") {
        WriteParameter(out, "Kr", kReflectionAtFront);
        out << " \"string texturename\" [" << RibString(images.Image(Layer::Environment).path)
            << ']';
    } else if (shader == "paintedplastic") {
        out << " \"string texturename\" [" << RibString(images.Image(Layer::Primary).path) << ']';
    }
    out << '\n';
}

}  // namespace studio
