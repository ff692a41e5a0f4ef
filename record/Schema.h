#pragma once

// What anyone must know about an attribute of a material stands in one row. Settings, files,
// search, command line, undo texts and tool tips loop over the rows or refer to them.

#include "record/RecordPath.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace CorvexMaterial {

enum class Attribute : std::uint8_t {
    PreviewPrimitive,
    Color,
    Emissive,
    Specular,
    Transparency,
    Ambient,
    WrapOrientationU,
    WrapOrientationV,
    DoubleSided,
    AlphaTest,
    AlphaTestReference,
    WrapType,
    OverlayTranslucency,
    FlatWrapType,
    OriginU,
    OriginV,
    ScaleU,
    ScaleV,
    TilesPerUnit,
    Texture,
    TextureAlphaChannelUse,
    AlphaIsTransparent,
    TextureAlpha,
    TextureOverlay,
    TextureBumpmap,
    TextureSpecularMap,
    TextureEnvironmentMap,
    RayTraceBrilliance,
    RayTraceReflection,
    RayTraceNormalPattern,
    RayTraceNormalSize,
    RayTraceNormalScale,
    RayTraceIridescenceFactor,
    RayTraceIridescenceThickness,
    RayTraceIridescenceTurbulence,
    RayTraceRoughness,
    RayTraceMetallic,
    RaytracePredefinedType,
    RaytracePredefinedMaterial,
    RaytraceColorPattern0Red,
    RaytraceColorPattern0Green,
    RaytraceColorPattern0Blue,
    RaytraceColorPattern1Red,
    RaytraceColorPattern1Green,
    RaytraceColorPattern1Blue,
    RaytraceColorPattern2Red,
    RaytraceColorPattern2Green,
    RaytraceColorPattern2Blue,
    RaytraceColorPattern3Red,
    RaytraceColorPattern3Green,
    RaytraceColorPattern3Blue,
    RaytraceColorPatternFrequency,
    RaytraceColorPatternTurbulence,
    RaytraceNormalFrequency,
    RaytraceNormalTurbulence,
    TextureLibrary,
    MaterialLibrary,
    ApplyRelative,
    RayTraceType,
    RaytraceColorPattern,
    Plugin,
    PluginParameters,
    CustomFields,
    RaytraceColorPattern0Alpha,
    RaytraceColorPattern1Alpha,
    RaytraceColorPattern2Alpha,
    RaytraceColorPattern3Alpha,
};

inline constexpr std::size_t kAttributeCount =
    static_cast<std::size_t>(Attribute::RaytraceColorPattern3Alpha) + 1;

enum class AttributeKind : std::uint8_t {
    Text,
    WholeNumber,   ///< any 32-bit integer, or a single without a fraction
    ListPosition,  ///< within the row's range
    Flag,
    Switch,  ///< a flag that the settings keep as 1 or 0
    Single,
    PackedColour,
    Numbers,  ///< several; in the settings numbered keys, with the row's keys as their stems
    Texts,    ///< likewise
};

enum class AttributeUnit : std::uint8_t {
    None,
    Percent,
    Byte,
    Fraction,  ///< 0 to 1
    Steps,     ///< of a slider
};

/// What belongs together for a person. The members of some groups are chosen together, and a change
/// of them is a change of the group.
enum class AttributeGroup : std::uint8_t {
    Surface,
    Blending,
    Textures,
    Wrap,
    Placement,
    Raytrace,
    Plugin,
    CustomFields,
    Panel,  ///< the panel's own state, no part of a material
};

/// What an editor offers, ends included; a host may store anything else.
struct NumberRange {
    double least = 0.0;
    double most = 0.0;
};

struct AttributeRow {
    Attribute attribute;
    RecordPath path;              ///< nowhere for the panel's own state
    std::string_view currentKey;  ///< of the state kept between runs; empty = none
    std::string_view userKey;     ///< of the user's own default; empty = none
    /// In files, searches and on the command line, dots between the levels; empty for what is in
    /// none of them.
    std::string_view word;
    const char* label;  ///< for a person, English
    AttributeKind kind;
    AttributeUnit unit;
    NumberRange range;             ///< of the kinds that are numbers
    std::string_view factoryText;  ///< canonical for the kind
    AttributeGroup group;
};

/// The files of the six texture layers, in the order of the layers.
inline constexpr std::array kTextureFiles{
    Attribute::Texture,        Attribute::TextureOverlay,     Attribute::TextureAlpha,
    Attribute::TextureBumpmap, Attribute::TextureSpecularMap, Attribute::TextureEnvironmentMap};

/// Every attribute, in enum order.
[[nodiscard]] std::span<const AttributeRow> AttributeRows();
[[nodiscard]] const AttributeRow& RowOf(Attribute attribute);
[[nodiscard]] std::string_view FactoryText(Attribute attribute);
/// What a person calls the group where a change of one member is a change of all; else null.
[[nodiscard]] const char* LabelOf(AttributeGroup group);
/// The row of a word, whose capitals and hyphens do not count: `doubleSided`, `double-sided`. Null
/// for an unknown one.
[[nodiscard]] const AttributeRow* FindAttribute(std::string_view word);

}  // namespace CorvexMaterial
