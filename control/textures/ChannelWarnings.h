#pragma once

#include <CorvexMaterial/CorvexDB.h>

#include <optional>
#include <string_view>

namespace CorvexMaterial {

struct ChannelWarning {
    std::string_view text;
    std::string_view key;
};

/// The warning that entering a channel's tab gives: asks the host each time, the one query that
/// the tab needs and, for the bump map's text, whether raytracing can be offered.
[[nodiscard]] std::optional<ChannelWarning>
WarningOfTab(int tab, CorvexDB::GraphicsCapabilities& graphics,
             CorvexDB::ApplicationState& applicationState);

}  // namespace CorvexMaterial
