#pragma once

#include <CorvexMaterial/CorvexDB.h>

#include <string>
#include <vector>

namespace CorvexMaterial {

/// The first entry of the plug-in list; stored as it stands.
inline constexpr const char* kNoPlugin = "None";

/// An entry of the plug-in list. Entry 0 stands for no plug-in.
struct PluginEntry {
    int position = 0;
    std::string name;  ///< as the list shows it, for messages
};

/// Asks the plug-in for its parameters; none for entry 0. Errors name the plug-in and keep the
/// status: SubscriptOutOfRange when the host's table lacks the entry, InvalidArgument when the
/// entry holds no plug-in, and whatever the plug-in threw.
[[nodiscard]] std::vector<CorvexDB::PluginParameter> AskParameters(CorvexDB::PluginTable& table,
                                                                   const PluginEntry& entry);

/// Rethrows what is being handled as an error that names the plug-in.
[[noreturn]] void RethrowNaming(const PluginEntry& entry);

/// Runs a body that works with what a plug-in gave.
template <typename Body>
auto Naming(const PluginEntry& entry, Body&& body)
{
    try {
        return body();
    } catch (...) {
        RethrowNaming(entry);
    }
}

}  // namespace CorvexMaterial
