#include "GltfExport.h"

#include "Amounts.h"
#include "GltfImages.h"
#include "GltfMaterials.h"
#include "MaterialModel.h"
#include "ShapeNames.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kGltfOnlyRaytracer =
    QT_TRANSLATE_NOOP("Interchange", "only a raytracer knows it");
constexpr const char* kGltfNoImage =
    QT_TRANSLATE_NOOP("Interchange", "the format has no such image");

constexpr FormatTable kGltfTable{{
    {Attribute::Color, Outcome::Mapped, "baseColorFactor", ""},
    {Attribute::Ambient, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "light from all around is the scene's, not a material's")},
    {Attribute::Emissive, Outcome::Mapped, "emissiveFactor", ""},
    {Attribute::Specular, Outcome::Approximated, "roughnessFactor",
     QT_TRANSLATE_NOOP("Interchange", "as smoothness: shine and its width are one amount there")},
    {Attribute::Transparency, Outcome::Approximated, "alpha of baseColorFactor, alphaMode BLEND",
     QT_TRANSLATE_NOOP("Interchange", "highlights fade with the surface")},
    {Attribute::DoubleSided, Outcome::Mapped, "doubleSided", ""},
    {Attribute::AlphaTest, Outcome::Dropped, "alphaMode MASK, alphaCutoff",
     QT_TRANSLATE_NOOP("Interchange", "the format only knows \"greater or equal\", and only for "
                                      "what is not transparent")},
    {Attribute::Texture, Outcome::Mapped, "baseColorTexture", ""},
    {Attribute::TextureAlphaChannelUse, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "an alpha channel always means coverage there")},
    {Attribute::TextureOverlay, Outcome::Dropped, "", kGltfNoImage},
    {Attribute::TextureAlpha, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "coverage has to be in the primary texture's alpha channel")},
    {Attribute::TextureBumpmap, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format takes images of directions, not of heights")},
    {Attribute::TextureSpecularMap, Outcome::Dropped, "", kGltfNoImage},
    {Attribute::TextureEnvironmentMap, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "what is mirrored is the scene's, not a material's")},
    {Attribute::OriginU, Outcome::Mapped, "KHR_texture_transform", ""},
    {Attribute::WrapType, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "where an image lies is up to the model's coordinates")},
    {Attribute::RayTraceRoughness, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "shine and its width are one amount there")},
    {Attribute::RayTraceMetallic, Outcome::Mapped, "metallicFactor", ""},
    {Attribute::RayTraceReflection, Outcome::Approximated, "KHR_materials_clearcoat",
     QT_TRANSLATE_NOOP("Interchange", "as a clear coat")},
    {Attribute::RayTraceBrilliance, Outcome::Dropped, "", kGltfOnlyRaytracer},
    {Attribute::RayTraceIridescenceFactor, Outcome::Dropped, "", kGltfOnlyRaytracer},
    {Attribute::RayTraceNormalPattern, Outcome::Dropped, "", kGltfOnlyRaytracer},
    {Attribute::RaytraceColorPattern, Outcome::Dropped, "", kGltfOnlyRaytracer},
    {Attribute::RaytracePredefinedMaterial, Outcome::Dropped, "", kGltfOnlyRaytracer},
    {Attribute::Plugin, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "other programs do not have the plug-in")},
    {Attribute::CustomFields, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no place for them")},
}};
static_assert(TellsEveryAttribute(kGltfTable));

constexpr const char* kTransform = "KHR_texture_transform";
constexpr const char* kClearCoat = "KHR_materials_clearcoat";

QJsonArray ArrayOf(Rgb colour)
{
    return {double{colour.red}, double{colour.green}, double{colour.blue}};
}

/// The alpha test of the format: what is at least the cutoff is there. Nothing for other tests.
std::optional<float> CutoffOf(const udtMaterial& material)
{
    const AlphaTest test = AlphaTestOf(material);
    const int least = test.comparison == ">=" ? test.reference : test.reference + 1;
    const bool can = (test.comparison == ">=" || test.comparison == ">") &&
                     material.Transparency <= 0 && least <= 255;
    return can ? std::optional(static_cast<float>(least) / 255.0F) : std::nullopt;
}

QJsonObject TextureInfo(const udtMaterial& material, GltfImages& images)
{
    QJsonObject info{{"index", images.Take(material.Textures.primary)}};
    const ImageWindow window = WindowOf(material);
    if (!window.IsWhole()) {
        const QJsonObject transform{
            {"offset", QJsonArray{double{window.offsetU}, double{window.offsetV}}},
            {"scale", QJsonArray{double{window.scaleU}, double{window.scaleV}}}};
        info["extensions"] = QJsonObject{{kTransform, transform}};
    }
    return info;
}

void PutAlpha(const udtMaterial& material, QJsonObject& object, GltfImages& images,
              ExportNotes& notes)
{
    const bool imageCovers = material.TextureAlphaChannelUse == 0 && !material.AlphaIsTransparent &&
                             images.HasAlpha(material.Textures.primary);
    if (const auto cutoff = CutoffOf(material)) {
        object["alphaMode"] = "MASK";
        object["alphaCutoff"] = double{*cutoff};
        notes.Say(Attribute::AlphaTest, Outcome::Mapped, "");
    } else if (material.Transparency > 0 || imageCovers) {
        object["alphaMode"] = "BLEND";
    }
    if (imageCovers) {
        notes.Say(Attribute::TextureAlphaChannelUse, Outcome::Mapped, "");
    }
}

QJsonObject SurfaceOf(const udtMaterial& material, GltfImages& images)
{
    QJsonArray colour = ArrayOf(LightOf(material.Color));
    colour.append(1.0 - FractionOf(material.Transparency));
    QJsonObject surface{{"baseColorFactor", colour},
                        {"metallicFactor", material.RayTrace.Metallic ? 1 : 0},
                        {"roughnessFactor", 1.0 - FractionOf(material.Specular)}};
    if (!material.Textures.primary.empty()) {
        surface["baseColorTexture"] = TextureInfo(material, images);
    }
    return surface;
}

void PutGlow(const udtMaterial& material, QJsonObject& object, GltfImages& images,
             ExportNotes& notes)
{
    const Rgb surface = LightOf(material.Color);
    const float share = LinearFromEncoded(FractionOf(material.Emissive));
    if (share <= 0.0F) {
        return;
    }
    object["emissiveFactor"] = ArrayOf(surface * share);
    if (!material.Textures.primary.empty()) {
        object["emissiveTexture"] = TextureInfo(material, images);
    }
    if (Strongest(surface) <= 0.0F) {
        notes.Say(Attribute::Emissive, Outcome::Dropped,
                  QT_TRANSLATE_NOOP("Interchange", "a black surface gives off nothing"));
    }
}

QJsonArray ExtensionsOf(std::span<const NamedMaterial> materials)
{
    QJsonArray used;
    const auto any = [&](auto&& matches) { return std::ranges::any_of(materials, matches); };
    if (any([](const NamedMaterial& named) { return named.material.RayTrace.Reflection > 0.0F; })) {
        used.append(kClearCoat);
    }
    if (any([](const NamedMaterial& named) {
            return !named.material.Textures.primary.empty() && !WindowOf(named.material).IsWhole();
        })) {
        used.append(kTransform);
    }
    return used;
}

}  // namespace

const FormatTable& GltfTable()
{
    return kGltfTable;
}

QJsonObject GltfMaterialOf(const NamedMaterial& named, GltfImages& images, ExportNotes& notes)
{
    const udtMaterial& material = named.material;
    QJsonObject object{
        {"name", QString::fromStdString(ReadableName(named.name, "Material"))},
        {"pbrMetallicRoughness", SurfaceOf(material, images)},
    };
    PutGlow(material, object, images, notes);
    PutAlpha(material, object, images, notes);
    if (material.DoubleSided) {
        object["doubleSided"] = true;
    }
    if (material.RayTrace.Reflection > 0.0F) {
        const double coat = CutToUnit(material.RayTrace.Reflection / 10.0F);
        object["extensions"] = QJsonObject{{kClearCoat, QJsonObject{{"clearcoatFactor", coat}}}};
    }
    return object;
}

void PutGltfMaterials(std::span<const NamedMaterial> materials, Wearers wearers, GltfImages& images,
                      QJsonObject& document, Report& report)
{
    QJsonArray objects;
    for (const NamedMaterial& named : materials) {
        ExportNotes notes(named, kGltfTable, wearers);
        objects.append(GltfMaterialOf(named, images, notes));
        notes.AddTo(report);
    }
    if (!objects.isEmpty()) {
        document["materials"] = objects;
    }
    images.AddTo(document);
    if (const QJsonArray used = ExtensionsOf(materials); !used.isEmpty()) {
        document["extensionsUsed"] = used;
    }
}

}  // namespace studio
