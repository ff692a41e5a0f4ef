#pragma once

#include <CorvexMaterial/Export.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace CorvexMaterial {

/// Warnings that a user may silence, each under its key. The host shows those up to TextureLibrary
/// on the control's event, the library's own warning dialog the others.
enum class WarningId : std::uint8_t {
    RaytraceTranslucency,
    Bumpmapping,
    SpecularEnvironmentMapping,
    RaytraceSimulation,
    MaterialExtended,
    MaterialLibrary,
    TextureLibrary,
    MaterialTif,
    PovRayConfiguration,
    SimulationTexture,  ///< its key is its window's title too
};

inline constexpr std::size_t kWarningCount = 10;

struct WarningRow {
    WarningId id;
    std::string_view key;
    std::string_view text;
    /// Bumpmapping: a raytracer can be offered. RaytraceSimulation: the material is a predefined
    /// one. Empty for the others.
    std::string_view otherText = {};
};

/// In enum order.
[[nodiscard]] CORVEX_EXPORT const std::array<WarningRow, kWarningCount>& WarningRows();
[[nodiscard]] CORVEX_EXPORT const WarningRow& RowOf(WarningId id);

inline constexpr std::string_view kTipsSection = "Tips";

/// Whether a stored choice lets the warning be shown: only a missing one and exactly 1 do.
[[nodiscard]] CORVEX_EXPORT bool WarningWanted(const std::optional<std::string>& storedChoice);
/// The choice as it is stored.
[[nodiscard]] CORVEX_EXPORT std::string TextOfWarningChoice(bool keepShowing);

}  // namespace CorvexMaterial
