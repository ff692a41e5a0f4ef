#pragma once

#include <CorvexMaterial/Schema.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace studio {

/// What a search looks at beside the name: stored with every entry, in a column each, whose name
/// stands in a query too. Properties that an entry of the other kind of library does not have stay
/// empty. The first columns are attributes of a material, by their words.
inline constexpr std::array<std::string_view, 11> kNumberColumns{
    "colour",    "ambient", "emissive",  "specular", "transparency", "doublesided",
    "alphatest", "layers",  "raytraced", "width",    "height"};

/// A position in `kNumberColumns`; those of attributes have no name.
enum class NumberProperty : std::uint8_t {
    Layers = 7,  ///< a bit for each used layer, see `kSearchLayers`
    Raytraced,
    Width,  ///< of a texture, pixels
    Height,
};
static_assert(kNumberColumns[static_cast<std::size_t>(NumberProperty::Height)] == "height");

/// The attributes of the first columns, in their order.
using ColumnAttributes =
    std::array<CorvexMaterial::Attribute, static_cast<std::size_t>(NumberProperty::Layers)>;
[[nodiscard]] const ColumnAttributes& AttributesOfColumns();

/// Stored without case.
enum class TextProperty : std::uint8_t {
    Plugin,
    Files,   ///< all file names
    Fields,  ///< `FieldLine`s of the custom fields in use
};

inline constexpr std::array<std::string_view, 3> kTextColumns{"plugin", "files", "fields"};

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
