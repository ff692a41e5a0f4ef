#include "studio/interchange/ExportedProperties.h"

#include "studio/interchange/Amounts.h"
#include "studio/render/MaterialModel.h"

#include <QCoreApplication>

#include <algorithm>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

struct PropertyRow {
    Property property;
    const char* name;
    bool (*isUsed)(const udtMaterial& material);
};

const CorvexDB::cdtRayTraceMaterialAttributes kPlainRayTrace;

bool Always(const udtMaterial&)
{
    return true;
}

bool HasImages(const udtMaterial& material)
{
    CorvexDB::TextureFiles placed = material.Textures;
    placed.environment.clear();
    return placed != CorvexDB::TextureFiles();
}

bool Iridesces(const udtMaterial& material)
{
    return material.RayTrace.IridescenceFactor > 0.0F;
}

constexpr std::array<PropertyRow, kPropertyCount> kProperties{{
    {Property::Colour, QT_TRANSLATE_NOOP("Interchange", "Colour"), Always},
    {Property::Ambient, QT_TRANSLATE_NOOP("Interchange", "Ambient"), Always},
    {Property::Emissive, QT_TRANSLATE_NOOP("Interchange", "Emissive"), Always},
    {Property::Specular, QT_TRANSLATE_NOOP("Interchange", "Specular"), Always},
    {Property::Transparency, QT_TRANSLATE_NOOP("Interchange", "Transparency"), Always},
    {Property::DoubleSided, QT_TRANSLATE_NOOP("Interchange", "Double-sided"),
     [](const udtMaterial& m) { return m.DoubleSided; }},
    {Property::AlphaTest, QT_TRANSLATE_NOOP("Interchange", "Alpha test"),
     [](const udtMaterial& m) { return !AlphaTestOf(m).comparison.empty(); }},
    {Property::PrimaryTexture, QT_TRANSLATE_NOOP("Interchange", "Primary texture"),
     [](const udtMaterial& m) { return !m.Textures.primary.empty(); }},
    {Property::AlphaChannel, QT_TRANSLATE_NOOP("Interchange", "Alpha channel use"),
     [](const udtMaterial& m) { return m.TextureAlphaChannelUse != 0 || m.AlphaIsTransparent; }},
    {Property::OverlayTexture, QT_TRANSLATE_NOOP("Interchange", "Overlay texture"),
     [](const udtMaterial& m) { return !m.Textures.overlay.empty(); }},
    {Property::AlphaMap, QT_TRANSLATE_NOOP("Interchange", "Alpha map"),
     [](const udtMaterial& m) { return !m.Textures.alpha.empty(); }},
    {Property::BumpMap, QT_TRANSLATE_NOOP("Interchange", "Bump map"),
     [](const udtMaterial& m) { return !m.Textures.bump.empty(); }},
    {Property::SpecularMap, QT_TRANSLATE_NOOP("Interchange", "Specular map"),
     [](const udtMaterial& m) { return !m.Textures.specular.empty(); }},
    {Property::EnvironmentMap, QT_TRANSLATE_NOOP("Interchange", "Environment map"),
     [](const udtMaterial& m) { return !m.Textures.environment.empty(); }},
    {Property::Placement, QT_TRANSLATE_NOOP("Interchange", "Cropping, flips and tiles"),
     [](const udtMaterial& m) { return HasImages(m) && !WindowOf(m).IsWhole(); }},
    {Property::Wrap, QT_TRANSLATE_NOOP("Interchange", "Wrap"), HasImages},
    {Property::Roughness, QT_TRANSLATE_NOOP("Interchange", "Roughness"),
     [](const udtMaterial& m) { return m.RayTrace.Roughness != kPlainRayTrace.Roughness; }},
    {Property::Metallic, QT_TRANSLATE_NOOP("Interchange", "Metallic"),
     [](const udtMaterial& m) { return m.RayTrace.Metallic; }},
    {Property::Reflection, QT_TRANSLATE_NOOP("Interchange", "Reflection"),
     [](const udtMaterial& m) { return m.RayTrace.Reflection > 0.0F; }},
    {Property::Brilliance, QT_TRANSLATE_NOOP("Interchange", "Brilliance"),
     [](const udtMaterial& m) { return m.RayTrace.Brilliance != kPlainRayTrace.Brilliance; }},
    {Property::Iridescence, QT_TRANSLATE_NOOP("Interchange", "Iridescence"), Iridesces},
    {Property::NormalPattern, QT_TRANSLATE_NOOP("Interchange", "Normal pattern"),
     [](const udtMaterial& m) { return m.RayTrace.NormalPattern != 0; }},
    {Property::ColourPattern, QT_TRANSLATE_NOOP("Interchange", "Colour pattern"),
     [](const udtMaterial& m) { return m.RayTrace.ColorPattern != 0; }},
    {Property::Predefined, QT_TRANSLATE_NOOP("Interchange", "Predefined raytrace material"),
     [](const udtMaterial& m) { return m.RayTrace.MaterialType != 0; }},
    {Property::Plugin, QT_TRANSLATE_NOOP("Interchange", "Plug-in"),
     [](const udtMaterial& m) { return !m.Plugin.empty(); }},
    {Property::CustomFields, QT_TRANSLATE_NOOP("Interchange", "Custom fields"),
     [](const udtMaterial& m) {
         return std::ranges::any_of(m.CustomFields,
                                    [](const std::string& field) { return !field.empty(); });
     }},
}};

constexpr bool RowsFollowProperties()
{
    for (std::size_t row = 0; row < kProperties.size(); ++row) {
        if (kProperties[row].property != static_cast<Property>(row)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowProperties());

}  // namespace

ExportNotes::ExportNotes(const NamedMaterial& named, const FormatTable& table)
    : m_named(named), m_table(table)
{
}

void ExportNotes::Say(Property property, Outcome outcome, const char* note)
{
    m_said[static_cast<std::size_t>(property)] = FormatRow{property, outcome, "", note};
}

void ExportNotes::AddTo(Report& report) const
{
    MaterialNotes notes(report, m_named.name);
    for (std::size_t index = 0; index < kPropertyCount; ++index) {
        const PropertyRow& property = kProperties[index];
        if (m_said[index] || property.isUsed(m_named.material)) {
            const FormatRow& row = m_said[index] ? *m_said[index] : m_table[index];
            const QString name = QCoreApplication::translate("Interchange", property.name);
            notes.Add(name.toStdString(), row.outcome, row.note);
        }
    }
}

}  // namespace studio
