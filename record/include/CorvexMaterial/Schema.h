#pragma once

// What anyone must know about an attribute of a material stands in one row. Settings, files,
// search, command line, undo texts and tool tips loop over the rows or refer to them.

#include <CorvexMaterial/Attribute.h>
#include <CorvexMaterial/MaterialEdit.h>
#include <CorvexMaterial/RecordPath.h>

#include <array>
#include <cstdint>
#include <string_view>

namespace CorvexMaterial {

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
    Degrees,
    SceneUnits,
};

/// What belongs together for a person. The members of some groups are chosen together, and a change
/// of them is a change of the group.
enum class AttributeGroup : std::uint8_t {
    Surface,
    Blending,
    Textures,
    Wrap,
    Placement,
    Projection,
    Raytrace,
    Plugin,
    CustomFields,
    Panel,  ///< the panel's own state, no part of a material
};

/// What must be done anew after a change.
enum class Touches : std::uint8_t {
    Uniform,      ///< the drawing, with other numbers
    Texture,      ///< the drawing, with other pictures or another use of them
    Coordinates,  ///< where pictures lie on the shape, which the wrap makes
    Raytracer,    ///< nothing before the next raytraced picture
    Nothing,      ///< no picture of the material shows it
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
    Touches touches;
    /// What other programs call it, in small letters with ", " between them; searches and the
    /// command line understand these too.
    std::string_view synonyms = {};
};

/// The files of the six texture layers, in the order of the layers.
inline constexpr std::array kTextureFiles{
    Attribute::Texture,        Attribute::TextureOverlay,     Attribute::TextureAlpha,
    Attribute::TextureBumpmap, Attribute::TextureSpecularMap, Attribute::TextureEnvironmentMap};

/// Every attribute, in enum order.
[[nodiscard]] const std::array<AttributeRow, kAttributeCount>& AttributeRows();
[[nodiscard]] const AttributeRow& RowOf(Attribute attribute);
[[nodiscard]] std::string_view FactoryText(Attribute attribute);
/// Whether a picture made from the record, without a raytracer, shows the attribute.
[[nodiscard]] constexpr bool IsDrawn(Touches touches)
{
    return touches != Touches::Raytracer && touches != Touches::Nothing;
}
/// For a person, English.
[[nodiscard]] const char* TitleOf(AttributeGroup group);
/// What a person calls the group where a change of one member is a change of all; else null.
[[nodiscard]] const char* LabelOf(AttributeGroup group);
/// Whether the records differ in an attribute whose change touches such.
[[nodiscard]] bool Differ(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other,
                          bool (*isMeant)(Touches));
/// Of a member of the record, or of one of the custom fields. Errors: std::out_of_range for another
/// element.
[[nodiscard]] EditedValue ValueOf(Attribute attribute, std::size_t element,
                                  const CorvexDB::udtMaterial& record);
/// Gives the record the touched values and leaves its others alone. Rows of the panel's own state
/// are none of its members. Errors: std::bad_variant_access for a value of another type,
/// out_of_range for another element; rows before it have been taken then.
void TakeRows(CorvexDB::udtMaterial& record, const std::vector<EditedRow>& rows);
/// In the mode `FilesOnly` only the files of the layers are put on a shape: gives the material the
/// other use of textures that the shape has.
void KeepTextureUse(CorvexDB::udtMaterial& material, const CorvexDB::udtMaterial& shape);
/// The row of a word or a synonym, whose capitals, hyphens and blanks do not count: `doubleSided`,
/// `double-sided`, `two-sided`. Null for an unknown one.
[[nodiscard]] const AttributeRow* FindAttribute(std::string_view word);

}  // namespace CorvexMaterial
