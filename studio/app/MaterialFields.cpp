#include "studio/app/MaterialFields.h"

#include <QCoreApplication>

#include <array>

namespace studio {
namespace {

using Material = CorvexDB::udtMaterial;

template <auto Field>
bool Same(const Material& one, const Material& other)
{
    return one.*Field == other.*Field;
}

struct FieldRow {
    const char* name;
    bool (*same)(const Material&, const Material&);
};

constexpr const char* kContext = "MaterialFields";
constexpr std::array kFields{
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "colour"), Same<&Material::Color>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "ambient"), Same<&Material::Ambient>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "emissive"), Same<&Material::Emissive>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "specular"), Same<&Material::Specular>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "transparency"), Same<&Material::Transparency>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "horizontal flip"),
             Same<&Material::WrapOrientationU>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "vertical flip"),
             Same<&Material::WrapOrientationV>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "double-sidedness"), Same<&Material::DoubleSided>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha test"), Same<&Material::AlphaTest>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha test reference"),
             Same<&Material::AlphaTestReference>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "wrap"), Same<&Material::Wrap>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "flat wrap"), Same<&Material::FlatWrap>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "tiling"), Same<&Material::TilesPerUnit>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha channel use"),
             Same<&Material::TextureAlphaChannelUse>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "alpha handling"),
             Same<&Material::AlphaIsTransparent>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "overlay translucency"),
             Same<&Material::OverlayTranslucency>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "textures"), Same<&Material::Textures>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "texture placement"), Same<&Material::Placement>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "raytrace attributes"), Same<&Material::RayTrace>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "plug-in"), Same<&Material::Plugin>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "plug-in parameters"),
             Same<&Material::PluginParameters>},
    FieldRow{QT_TRANSLATE_NOOP("MaterialFields", "custom fields"), Same<&Material::CustomFields>},
};
static_assert(kFields.size() == kMaterialFieldCount);

}  // namespace

FieldSet Differences(const Material& one, const Material& other)
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
