#include "studio/app/MaterialFields.h"

#include <QCoreApplication>

#include <array>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

template <auto Field>
bool Same(const udtMaterial& one, const udtMaterial& other)
{
    return one.*Field == other.*Field;
}

struct FieldRow {
    const char* name;
    bool (*same)(const udtMaterial&, const udtMaterial&);
};

constexpr const char* kContext = "MaterialFields";
constexpr std::array kFields{
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "colour"), Same<&udtMaterial::Color>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "ambient"), Same<&udtMaterial::Ambient>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "emissive"), Same<&udtMaterial::Emissive>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "specular"), Same<&udtMaterial::Specular>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "transparency"), Same<&udtMaterial::Transparency>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "horizontal flip"),
             Same<&udtMaterial::WrapOrientationU>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "vertical flip"),
             Same<&udtMaterial::WrapOrientationV>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "double-sidedness"),
             Same<&udtMaterial::DoubleSided>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha test"), Same<&udtMaterial::AlphaTest>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha test reference"),
             Same<&udtMaterial::AlphaTestReference>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "wrap"), Same<&udtMaterial::Wrap>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "flat wrap"), Same<&udtMaterial::FlatWrap>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "tiling"), Same<&udtMaterial::TilesPerUnit>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha channel use"),
             Same<&udtMaterial::TextureAlphaChannelUse>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha handling"),
             Same<&udtMaterial::AlphaIsTransparent>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "overlay translucency"),
             Same<&udtMaterial::OverlayTranslucency>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "textures"), Same<&udtMaterial::Textures>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "texture placement"),
             Same<&udtMaterial::Placement>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "raytrace attributes"),
             Same<&udtMaterial::RayTrace>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "plug-in"), Same<&udtMaterial::Plugin>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "plug-in parameters"),
             Same<&udtMaterial::PluginParameters>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "custom fields"),
             Same<&udtMaterial::CustomFields>},
};
static_assert(kFields.size() == kMaterialFieldCount);

}  // namespace

FieldSet Differences(const udtMaterial& one, const udtMaterial& other)
{
    FieldSet fields;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        fields[i] = !kFields[i].same(one, other);
    }
    return fields;
}

QString NameOf(const FieldSet& fields)
{
    if (fields.count() != 1) {
        return QCoreApplication::translate(kContext, "material");
    }
    std::size_t field = 0;
    while (!fields[field]) {
        ++field;
    }
    return QCoreApplication::translate(kContext, kFields[field].name);
}

}  // namespace studio
