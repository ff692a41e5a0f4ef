#include "GltfMaterialPatch.h"

#include "Amounts.h"
#include "GltfExport.h"
#include "GltfMaterials.h"
#include "GltfSurface.h"
#include "MaterialModel.h"

#include <QJsonDocument>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kGlossExtension = "KHR_materials_pbrSpecularGlossiness";
constexpr const char* kTransformExtension = "KHR_texture_transform";
constexpr const char* kCoatExtension = "KHR_materials_clearcoat";
constexpr const char* kPhysical = "pbrMetallicRoughness";

Json Member(const Json& object, const char* key)
{
    const auto found = object.find(key);
    return found == object.end() ? Json() : *found;
}

/// Only the components that are marked.
void PutComponents(Json& owner, const char* key, const Json& values, Json otherwise,
                   const std::array<bool, 4>& marked)
{
    const Json is = Member(owner, key);
    Json numbers = is.is_array() && is.size() == otherwise.size() ? is : std::move(otherwise);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (marked.at(i)) {
            numbers[i] = values[i];
        }
    }
    owner[key] = std::move(numbers);
}

/// The components that another colour is displayed for.
void PutColourIn(Json& owner, const char* key, const Json& values)
{
    const Json white{1, 1, 1, 1};
    const Json is = Member(owner, key).is_array() ? Member(owner, key) : white;
    std::array<bool, 4> marked{};
    for (std::size_t i = 0; i < std::min(is.size(), std::size_t{3}); ++i) {
        const auto displayed = [](const Json& number) {
            const auto part = CutToUnit(number.is_number() ? number.get<float>() : 0.0F);
            return ColourOfLight({part, part, part});
        };
        marked.at(i) = displayed(is[i]) != displayed(values[i]);
    }
    PutComponents(owner, key, values, white, marked);
}

}  // namespace

Json JsonOf(const QJsonObject& object)
{
    return Json::parse(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
}

QJsonObject QtJsonOf(const Json& object)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(object.dump())).object();
}

GltfMaterialPatch::GltfMaterialPatch(Json& material, const GltfFile& file, GltfImages& images)
    : m_material(material), m_file(file), m_images(images)
{
}

udtMaterial GltfMaterialPatch::Read() const
{
    Report unsaid;
    return SurfaceOfGltf(QtJsonOf(m_material), m_file, MaterialNotes(unsaid, "")).material;
}

bool GltfMaterialPatch::IsGlossy() const
{
    return Member(m_material, "extensions").contains(kGlossExtension);
}

Json* GltfMaterialPatch::Extension(const char* name)
{
    const bool has = Member(m_material, "extensions").contains(name);
    return has ? &m_material["extensions"][name] : nullptr;
}

void GltfMaterialPatch::Apply(const NamedMaterial& was, const NamedMaterial& now, Report& report)
{
    ExportNotes notes(now, GltfTable(), Wearers::Samples);
    const udtMaterial before = Read();
    m_written = JsonOf(GltfMaterialOf(now, m_images, notes));
    if (now.name != was.name) {
        m_material["name"] = m_written["name"];
    }
    if (now.material.Textures.primary != was.material.Textures.primary) {
        PutTexture(!now.material.Textures.primary.empty());
    }
    // Twice, since a glow is a share of the colour.
    Write(now.material);
    Write(now.material);
    notes.SayMisread({was.material, before, now.material, Read()});
    notes.AddChangesTo(report, was.material);
}

void GltfMaterialPatch::Write(const udtMaterial& want)
{
    const udtMaterial is = Read();
    if (is.Color != want.Color) {
        PutColour();
    }
    const udtMaterial coloured = Read();
    if (coloured.Emissive != want.Emissive || coloured.Color != want.Color) {
        PutGlow(is.Emissive > 0);
    }
    if (is.Specular != want.Specular || is.RayTrace.Metallic != want.RayTrace.Metallic) {
        PutShine();
    }
    if (SurfaceTermsOf(is).opacity != SurfaceTermsOf(want).opacity) {
        PutOpacity();
    }
    if (DifferIn(Attribute::AlphaTest, is, want)) {
        PutAlphaMode();
    }
    if (is.DoubleSided != want.DoubleSided) {
        m_material["doubleSided"] = want.DoubleSided;
    }
    if (is.RayTrace.Reflection != std::round(want.RayTrace.Reflection)) {
        PutCoat();
    }
    if (!want.Textures.primary.empty() && WindowOf(is) != WindowOf(want)) {
        PutPlacement();
    }
}

void GltfMaterialPatch::PutColour()
{
    const Json& values = m_written[kPhysical]["baseColorFactor"];
    if (Json* gloss = Extension(kGlossExtension)) {
        PutColourIn(*gloss, "diffuseFactor", values);
    }
    // Programs that do not know the older kind look here.
    if (!IsGlossy() || m_material.contains(kPhysical)) {
        PutColourIn(m_material[kPhysical], "baseColorFactor", values);
    }
}

void GltfMaterialPatch::PutGlow(bool glowed)
{
    if (Extension("KHR_materials_unlit") != nullptr) {
        return;
    }
    Json values = m_written.value("emissiveFactor", Json{0, 0, 0});
    if (const Json* strong = Extension("KHR_materials_emissive_strength")) {
        const double strength = strong->value("emissiveStrength", 1.0);
        for (Json& value : values) {
            value = strength > 0.0 ? std::min(value.get<double>() / strength, 1.0) : 0.0;
        }
    }
    PutComponents(m_material, "emissiveFactor", values, {0, 0, 0}, {true, true, true});
    if (!glowed && m_written.contains("emissiveTexture") &&
        !m_material.contains("emissiveTexture")) {
        const std::vector<Json*> base = BaseTextures();
        // A copy, since a new member moves the others.
        Json use = base.empty() ? m_written["emissiveTexture"] : *base.front();
        m_material["emissiveTexture"] = std::move(use);
    }
}

void GltfMaterialPatch::PutShine()
{
    const udtMaterial is = Read();
    const Json& written = m_written[kPhysical];
    if (Json* gloss = Extension(kGlossExtension)) {
        (*gloss)["glossinessFactor"] = 1.0 - written["roughnessFactor"].get<double>();
    }
    if (IsGlossy() && !m_material.contains(kPhysical)) {
        return;
    }
    Json& physical = m_material[kPhysical];
    const bool metallic = written["metallicFactor"].get<double>() >= 0.5;
    if (is.RayTrace.Metallic != metallic && !IsGlossy()) {
        physical["metallicFactor"] = written["metallicFactor"];
    }
    const double roughness = written["roughnessFactor"].get<double>();
    if (is.Specular != PercentOf(static_cast<float>(1.0 - roughness))) {
        physical["roughnessFactor"] = roughness;
    }
}

void GltfMaterialPatch::PutOpacity()
{
    const Json values = m_written[kPhysical]["baseColorFactor"];
    const Json white{1, 1, 1, 1};
    Json* through = Extension("KHR_materials_transmission");
    if (through != nullptr && through->value("transmissionFactor", 0.0) > 0.0) {
        const double factor = (*through)["transmissionFactor"].get<double>();
        const double alpha = SurfaceTermsOf(Read()).opacity / std::max(1.0 - factor, 1e-6);
        const double passes = 1.0 - values[3].get<double>() / std::clamp(alpha, 1e-6, 1.0);
        (*through)["transmissionFactor"] = static_cast<float>(std::max(passes, 0.0));
        return;
    }
    const std::array<bool, 4> onlyAlpha{false, false, false, true};
    if (Json* gloss = Extension(kGlossExtension)) {
        PutComponents(*gloss, "diffuseFactor", values, white, onlyAlpha);
    }
    if (!IsGlossy() || m_material.contains(kPhysical)) {
        PutComponents(m_material[kPhysical], "baseColorFactor", values, white, onlyAlpha);
    }
    PutAlphaMode();
}

void GltfMaterialPatch::PutAlphaMode()
{
    for (const char* key : {"alphaMode", "alphaCutoff"}) {
        if (m_written.contains(key)) {
            m_material[key] = m_written[key];
        } else {
            m_material.erase(key);
        }
    }
}

void GltfMaterialPatch::PutCoat()
{
    const Json coat = Member(Member(m_written, "extensions"), kCoatExtension);
    Json& extension = m_material["extensions"][kCoatExtension];
    extension["clearcoatFactor"] = coat.is_null() ? Json(0) : coat["clearcoatFactor"];
}

/// Where the document tells of the base image: for all kinds of programs, and for its glow.
std::vector<Json*> GltfMaterialPatch::BaseTextures()
{
    std::vector<Json*> places;
    if (Json* gloss = Extension(kGlossExtension); gloss && gloss->contains("diffuseTexture")) {
        places.push_back(&(*gloss)["diffuseTexture"]);
    }
    if (Member(m_material, kPhysical).contains("baseColorTexture")) {
        places.push_back(&m_material[kPhysical]["baseColorTexture"]);
    }
    const Json glow = Member(m_material, "emissiveTexture");
    if (!places.empty() && Member(glow, "index") == Member(*places.front(), "index")) {
        places.push_back(&m_material["emissiveTexture"]);
    }
    return places;
}

void GltfMaterialPatch::PutTexture(bool any)
{
    const std::vector<Json*> places = BaseTextures();
    if (!any) {
        const bool glows = m_material.contains("emissiveTexture") && !places.empty() &&
                           places.back() == &m_material["emissiveTexture"];
        if (Json* gloss = Extension(kGlossExtension)) {
            gloss->erase("diffuseTexture");
        }
        if (m_material.contains(kPhysical)) {
            m_material[kPhysical].erase("baseColorTexture");
        }
        if (glows) {
            m_material.erase("emissiveTexture");
        }
        return;
    }
    const Json& use = m_written[kPhysical]["baseColorTexture"];
    for (Json* place : places) {
        (*place)["index"] = use["index"];
    }
    if (places.empty()) {
        Json* gloss = Extension(kGlossExtension);
        (gloss != nullptr ? (*gloss)["diffuseTexture"]
                          : m_material[kPhysical]["baseColorTexture"]) = use;
    }
}

void GltfMaterialPatch::PutPlacement()
{
    const Json use = Member(Member(m_written, kPhysical), "baseColorTexture");
    const Json transform = Member(Member(use, "extensions"), kTransformExtension);
    for (Json* place : BaseTextures()) {
        Json& target = (*place)["extensions"][kTransformExtension];
        target["offset"] = transform.is_null() ? Json{0, 0} : transform["offset"];
        target["scale"] = transform.is_null() ? Json{1, 1} : transform["scale"];
    }
}

}  // namespace studio
