#pragma once

// The attributes of a material as keys of a JSON object: one row each, in the order of the record.

#include "host/MaterialRecord.h"
#include "studio/libraries/JsonFields.h"

namespace studio {

namespace fields {

using Material = CorvexDB::udtMaterial;
using Raytrace = CorvexDB::cdtRayTraceMaterialAttributes;
using Placement = CorvexDB::TexturePlacement;
using Files = CorvexDB::TextureFiles;

inline constexpr NumberRange kAmount{0.0, 10.0};
inline constexpr NumberRange kListPosition{0.0, 1000.0};

}  // namespace fields

inline constexpr std::tuple kMaterialFields{
    JsonField{"colour", &fields::Material::Color, NumberRange{0, 0xFFFFFF}},
    JsonField{"ambient", &fields::Material::Ambient, kAnyInteger},
    JsonField{"emissive", &fields::Material::Emissive, kAnyInteger},
    JsonField{"specular", &fields::Material::Specular, kAnyInteger},
    JsonField{"transparency", &fields::Material::Transparency, kAnyInteger},
    JsonField{"flipU", &fields::Material::WrapOrientationU},
    JsonField{"flipV", &fields::Material::WrapOrientationV},
    JsonField{"doubleSided", &fields::Material::DoubleSided},
    JsonField{"alphaTest", &fields::Material::AlphaTest, NumberRange{0, 7}},
    JsonField{"alphaTestReference", &fields::Material::AlphaTestReference, kAnyInteger},
    JsonField{"wrap", &fields::Material::Wrap, NumberRange{0, 2}},
    JsonField{"flatWrap", &fields::Material::FlatWrap, NumberRange{0, 2}},
    JsonField{"tilesPerUnit", &fields::Material::TilesPerUnit, kAnyFloat},
    JsonField{"textureAlphaUse", &fields::Material::TextureAlphaChannelUse, NumberRange{0, 4}},
    JsonField{"alphaIsTransparent", &fields::Material::AlphaIsTransparent},
    JsonField{"overlayTranslucency", &fields::Material::OverlayTranslucency, kAnyFloat},
    JsonField{"plugin", &fields::Material::Plugin},
};

inline constexpr std::tuple kPlacementFields{
    JsonField{"originU", &fields::Placement::originU, kAnyFloat},
    JsonField{"originV", &fields::Placement::originV, kAnyFloat},
    JsonField{"scaleU", &fields::Placement::scaleU, kAnyFloat},
    JsonField{"scaleV", &fields::Placement::scaleV, kAnyFloat},
};

inline constexpr std::tuple kRaytraceFields{
    JsonField{"brilliance", &fields::Raytrace::Brilliance, fields::kAmount},
    JsonField{"reflection", &fields::Raytrace::Reflection, fields::kAmount},
    JsonField{"iridescence", &fields::Raytrace::IridescenceFactor, fields::kAmount},
    JsonField{"iridescenceThickness", &fields::Raytrace::IridescenceThickness, fields::kAmount},
    JsonField{"iridescenceTurbulence", &fields::Raytrace::IridescenceTurbulence, fields::kAmount},
    JsonField{"roughness", &fields::Raytrace::Roughness, fields::kAmount},
    JsonField{"normalDepth", &fields::Raytrace::NormalDepth, fields::kAmount},
    JsonField{"normalScale", &fields::Raytrace::NormalScale, fields::kAmount},
    JsonField{"normalPattern", &fields::Raytrace::NormalPattern, fields::kListPosition},
    JsonField{"metallic", &fields::Raytrace::Metallic},
    JsonField{"materialType", &fields::Raytrace::MaterialType, NumberRange{0, 1}},
    JsonField{"predefinedType", &fields::Raytrace::PredefinedType, fields::kListPosition},
    JsonField{"predefinedMaterial", &fields::Raytrace::PreDefinedMaterial, fields::kListPosition},
    JsonField{"colourPattern", &fields::Raytrace::ColorPattern, fields::kListPosition},
    JsonField{"colourPatternFrequency", &fields::Raytrace::ColorPatternFrequency, fields::kAmount},
    JsonField{"colourPatternTurbulence", &fields::Raytrace::ColorPatternTurbulence,
              fields::kAmount},
    JsonField{"normalPatternFrequency", &fields::Raytrace::NormalPatternFrequency, fields::kAmount},
    JsonField{"normalPatternTurbulence", &fields::Raytrace::NormalPatternTurbulence,
              fields::kAmount},
};

inline constexpr std::tuple kPatternColourFields{
    JsonField{"red", &CorvexDB::PatternColour::red, NumberRange{0, 1}},
    JsonField{"green", &CorvexDB::PatternColour::green, NumberRange{0, 1}},
    JsonField{"blue", &CorvexDB::PatternColour::blue, NumberRange{0, 1}},
    JsonField{"alpha", &CorvexDB::PatternColour::alpha, NumberRange{0, 1}},
};

struct TextureFileField {
    const char* key;
    std::string CorvexDB::TextureFiles::*member;
};

/// Row n is bit n of the layers that a search looks at.
inline constexpr std::array kTextureFileFields{
    TextureFileField{"primary", &fields::Files::primary},
    TextureFileField{"overlay", &fields::Files::overlay},
    TextureFileField{"alpha", &fields::Files::alpha},
    TextureFileField{"bump", &fields::Files::bump},
    TextureFileField{"specular", &fields::Files::specular},
    TextureFileField{"environment", &fields::Files::environment},
};

}  // namespace studio
