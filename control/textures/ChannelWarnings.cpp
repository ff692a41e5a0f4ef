#include "ChannelWarnings.h"

#include <CorvexMaterial/TextureLayers.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

struct Row {
    TextureLayer layer;
    bool (CorvexDB::GraphicsCapabilities::*isPossible)();  ///< null: warns every time
    WarningId warning;
};

// The specular and the environment map share a warning, so that one choice silences both.
constexpr std::array kWarningRows{
    Row{TextureLayer::Alpha, nullptr, WarningId::RaytraceTranslucency},
    Row{TextureLayer::Bump, &CorvexDB::GraphicsCapabilities::CanBumpmap, WarningId::Bumpmapping},
    Row{TextureLayer::Specular, &CorvexDB::GraphicsCapabilities::CanSpecularMap,
        WarningId::SpecularEnvironmentMapping},
    Row{TextureLayer::Environment, &CorvexDB::GraphicsCapabilities::CanEnvironmentMap,
        WarningId::SpecularEnvironmentMapping},
};

}  // namespace

std::optional<ChannelWarning> WarningOfTab(int tab, CorvexDB::GraphicsCapabilities& graphics,
                                           CorvexDB::ApplicationState& applicationState)
{
    const auto* const row = std::ranges::find_if(
        kWarningRows, [tab](const Row& candidate) { return RowOf(candidate.layer).tab == tab; });
    if (row == kWarningRows.end() ||
        (row->isPossible != nullptr && (graphics.*row->isPossible)())) {
        return std::nullopt;
    }
    const WarningRow& warning = RowOf(row->warning);
    const bool longText =
        row->warning == WarningId::Bumpmapping && applicationState.RaytracerAvailable();
    return ChannelWarning{longText ? warning.otherText : warning.text, warning.key};
}

}  // namespace CorvexMaterial
