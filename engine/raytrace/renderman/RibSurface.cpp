#include "RibSurface.h"

#include "MaterialModel.h"
#include "MirrorModel.h"
#include "Quoting.h"
#include "SliderMeaning.h"
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/SimulationTexture.h>

#include <algorithm>
#include <array>

namespace studio {
namespace {

/// Of the lights, what the metals get, whose shaders have no diffuse part.
constexpr float kMeanLight = 0.45F;
/// From here on a mirror says more about a surface than its body.
constexpr float kMostlyMirror = 0.5F;
/// The highlight of predefined materials, and the reflection from which on it is a narrow one.
constexpr float kPolish = 0.5F;
constexpr float kPolishedFrom = 0.1F;

struct Look {
    Rgb colour;
    SurfaceTerms terms;
    RaytraceAmounts amounts;
    bool painted = false;   ///< by primary or overlay image
    bool mirrors = false;   ///< an environment image
    float mirrored = 0.0F;  ///< of what is around; the body counts the rest
};

/// It stands in for everything.
void ApplyPredefined(const CorvexMaterial::PredefinedLook& row, Look& look)
{
    look.colour = LightOf(CorvexMaterial::ColourOfHex(row.colour));
    look.terms = SurfaceTermsOf({});
    look.terms.opacity = 1.0F - row.clearness;
    look.terms.highlight = kPolish;
    look.amounts = {};
    look.amounts.shininess = (row.reflection > kPolishedFrom ? 2.0F : 2.0F / 3.0F) * kShininess;
    look.amounts.reflection = row.reflection;
    look.amounts.metallic = row.type == CorvexMaterial::PredefinedType::Metal;
    look.painted = look.mirrors = false;
}

void ApplyRaytraceMaterial(const CorvexDB::udtMaterial& material, Look& look)
{
    const auto& attributes = material.RayTrace;
    if (CorvexMaterial::IsSimulationTexture(material.Textures.primary)) {
        return;  // the image shows it already
    }
    if (const auto* row = CorvexMaterial::PredefinedLookOf(attributes)) {
        ApplyPredefined(*row, look);
    } else if (CorvexMaterial::FindColourPattern(attributes.ColorPattern) != nullptr) {
        look.colour = look.colour * CorvexMaterial::MeanPatternLight(attributes);
        look.painted = false;
    }
}

Look LookOf(const RibSurface& surface)
{
    const CorvexDB::udtMaterial& material = surface.material;
    const LayerSet& layers = surface.layers.set;
    Look look{{}, SurfaceTermsOf(material), AmountsOf(material.RayTrace)};
    look.colour = look.terms.base;
    look.painted = layers.Has(Layer::Primary) || layers.Has(Layer::Overlay);
    look.mirrors = layers.Has(Layer::Environment);
    ApplyRaytraceMaterial(material, look);
    // One shader has either an image or a mirror.
    if (look.painted && look.mirrors) {
        look.mirrors = look.amounts.reflection >= kMostlyMirror;
        look.painted = !look.mirrors;
    }
    look.mirrored = MirrorOf(look.amounts, look.colour, look.mirrors).front;
    // Without an image of its surroundings a mirror shows the lights alone.
    look.terms.highlight += look.amounts.reflection * (kShine - look.terms.highlight);
    if (surface.dull) {
        look.terms.highlight = look.mirrored = 0.0F;
    }
    return look;
}

const char* ShaderOf(const Look& look)
{
    if (look.mirrors) {
        return "shinymetal";
    }
    if (look.painted) {
        return "paintedplastic";
    }
    if (look.terms.highlight <= 0.0F) {
        return "matte";
    }
    return look.amounts.metallic && look.mirrored >= kMostlyMirror ? "metal" : "plastic";
}

void WriteNumber(TextStream& out, const char* name, float value)
{
    out << " \"float " << name << "\" [" << value << ']';
}

void WriteColour(TextStream& out, const Rgb& colour)
{
    out << '[' << colour.red << ' ' << colour.green << ' ' << colour.blue << ']';
}

void WriteShader(TextStream& out, const Look& look, std::string_view shader)
{
    const bool metal = shader == "metal" || shader == "shinymetal";
    const float everywhere = kSkyIntensity / 2.0F + (metal ? kMeanLight : 0.0F);
    const float body = 1.0F - look.mirrored;
    out << "Surface \"" << shader << '"';
    WriteNumber(out, "Ka", body * (look.terms.emission + look.terms.diffuse * everywhere));
    if (!metal) {
        WriteNumber(out, "Kd", body * look.terms.diffuse);
    }
    if (shader != "matte") {
        WriteNumber(out, "Ks", look.terms.highlight / kKeyLight.intensity);
        WriteNumber(out, "roughness", 1.0F / look.amounts.shininess);
        if (!metal && look.amounts.metallic) {
            out << " \"color specularcolor\" ";
            WriteColour(out, look.colour);
        }
    }
    if (shader == "shinymetal") {
        WriteNumber(out, "Kr", look.mirrored);
    }
}

/// As the renderer names what it makes of an image of the surroundings.
std::string EnvironmentMapOf(const std::string& image)
{
    return image.substr(0, image.rfind('.')) + ".env";
}

}  // namespace

void WriteRibEnvironment(TextStream& out, const RibSurface& surface, RibTextures& textures,
                         std::set<std::string>& made)
{
    if (!LookOf(surface).mirrors) {
        return;
    }
    const std::string image = textures.EnvironmentOf(surface.layers);
    if (!made.insert(image).second) {
        return;
    }
    out << "MakeLatLongEnvironment " << RibString(image) << ' '
        << RibString(EnvironmentMapOf(image)) << " \"gaussian\" 2 2\n";
}

bool WriteRibSurface(TextStream& out, const RibSurface& surface, RibTextures& textures)
{
    const Look look = LookOf(surface);
    out << "Color ";
    WriteColour(out, look.colour);
    out << "\nOpacity ";
    WriteColour(out, {look.terms.opacity, look.terms.opacity, look.terms.opacity});
    out << '\n';
    WriteShader(out, look, ShaderOf(look));
    if (look.mirrors || look.painted) {
        const std::string image =
            look.mirrors
                ? EnvironmentMapOf(textures.EnvironmentOf(surface.layers))
                : textures.TileOf(surface.layers, OverlayOpacityOf(surface.material), surface.crop);
        out << " \"string texturename\" [" << RibString(image) << ']';
    }
    out << '\n';
    return look.painted;
}

}  // namespace studio
