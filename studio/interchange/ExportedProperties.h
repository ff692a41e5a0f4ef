#pragma once

#include "studio/interchange/Report.h"
#include "studio/libraries/MaterialText.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>

namespace studio {

/// What a material consists of, as a report on its export lists it.
enum class Property : std::uint8_t {
    Colour,
    Ambient,
    Emissive,
    Specular,
    Transparency,
    DoubleSided,
    AlphaTest,
    PrimaryTexture,
    AlphaChannel,
    OverlayTexture,
    AlphaMap,
    BumpMap,
    SpecularMap,
    EnvironmentMap,
    Placement,
    Wrap,
    Roughness,
    Metallic,
    Reflection,
    Brilliance,
    Iridescence,
    NormalPattern,
    ColourPattern,
    Predefined,
    Plugin,
    CustomFields,
};
inline constexpr std::size_t kPropertyCount = 26;

/// How a format takes a property, unless the writer knows better for a certain material.
struct FormatRow {
    Property property;
    Outcome outcome;
    const char* term;  ///< what the format calls it, empty where it has nothing
    const char* note;  ///< marked with QT_TRANSLATE_NOOP("Interchange", ...)
};
/// One row per property, in their order.
using FormatTable = std::array<FormatRow, kPropertyCount>;

[[nodiscard]] constexpr bool FollowsProperties(const FormatTable& table)
{
    for (std::size_t row = 0; row < table.size(); ++row) {
        if (table[row].property != static_cast<Property>(row)) {
            return false;
        }
    }
    return true;
}

/// Collects what becomes of one material and reports every property that the material makes use of.
class ExportNotes {
public:
    ExportNotes(const NamedMaterial& named, const FormatTable& table);

    /// In place of the table's row.
    void Say(Property property, Outcome outcome, const char* note);
    void AddTo(Report& report) const;

private:
    const NamedMaterial& m_named;
    const FormatTable& m_table;
    std::array<std::optional<FormatRow>, kPropertyCount> m_said{};
};

}  // namespace studio
