#pragma once

#include <CorvexMaterial/Schema.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace studio {

/// What a search looks at beside the name: stored with every entry, in a column each. Properties
/// that an entry of the other kind of library does not have stay empty.
enum class NumberProperty : std::int32_t {
    Colour,
    Ambient,
    Emissive,
    Specular,
    Transparency,
    DoubleSided,
    AlphaTest,
    Layers,  ///< a bit for each used layer, see `kSearchLayers`
    Raytraced,
    Width,  ///< of a texture, pixels
    Height,
};

/// Stored without case.
enum class TextProperty : std::int32_t {
    Plugin,
    Files,   ///< all file names
    Fields,  ///< `FieldLine`s of the custom fields in use
};

template <typename Property>
struct SearchColumn {
    Property property;
    std::string_view name;  ///< of the column, and in a query
    /// Whose value it is; nothing where it is worked out.
    std::optional<CorvexMaterial::Attribute> attribute = std::nullopt;
};

inline constexpr std::array<SearchColumn<NumberProperty>, 11> kNumberColumns{{
    {NumberProperty::Colour, "colour", CorvexMaterial::Attribute::Color},
    {NumberProperty::Ambient, "ambient", CorvexMaterial::Attribute::Ambient},
    {NumberProperty::Emissive, "emissive", CorvexMaterial::Attribute::Emissive},
    {NumberProperty::Specular, "specular", CorvexMaterial::Attribute::Specular},
    {NumberProperty::Transparency, "transparency", CorvexMaterial::Attribute::Transparency},
    {NumberProperty::DoubleSided, "doublesided", CorvexMaterial::Attribute::DoubleSided},
    {NumberProperty::AlphaTest, "alphatest", CorvexMaterial::Attribute::AlphaTest},
    {NumberProperty::Layers, "layers"},
    {NumberProperty::Raytraced, "raytraced"},
    {NumberProperty::Width, "width"},
    {NumberProperty::Height, "height"},
}};

inline constexpr std::array<SearchColumn<TextProperty>, 3> kTextColumns{{
    {TextProperty::Plugin, "plugin"},
    {TextProperty::Files, "files"},
    {TextProperty::Fields, "fields"},
}};

struct SearchValues {
    std::array<std::optional<std::int64_t>, kNumberColumns.size()> numbers;
    std::array<std::string, kTextColumns.size()> texts;

    std::optional<std::int64_t>& operator[](NumberProperty property)
    {
        return numbers.at(static_cast<std::size_t>(property));
    }
    std::string& operator[](TextProperty property)
    {
        return texts.at(static_cast<std::size_t>(property));
    }
};

/// Names of the layers in a query; row n is bit n.
inline constexpr std::array<std::string_view, 6> kSearchLayers{
    "texture", "overlay", "alpha", "bump", "specular", "environment"};

/// Text without case, as it is stored and looked for.
[[nodiscard]] std::string Folded(std::string_view text);

/// One custom field as `Fields` holds it; the lines stand one behind the other.
[[nodiscard]] std::string FieldLine(std::string_view name, std::string_view value);

}  // namespace studio
