#include "SearchPath.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace CorvexMaterial {

namespace {

constexpr std::array kVariables{"PATH",           "LD_LIBRARY_PATH", "QT_PLUGIN_PATH",
                                "XDG_DATA_DIRS",  "XDG_CONFIG_DIRS", "XDG_DATA_HOME",
                                "XDG_STATE_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"};

}  // namespace

std::string AbsoluteEntries(std::string_view list)
{
    std::string kept;
    while (!list.empty()) {
        const std::string_view entry = list.substr(0, list.find(':'));
        if (entry.substr(0, 1) == "/") {
            kept.append(kept.empty() ? "" : ":").append(entry);
        }
        list.remove_prefix(std::min(entry.size() + 1, list.size()));
    }
    return kept;
}

void DropRelativeSearchPaths()
{
    for (const char* variable : kVariables) {
        const char* value = std::getenv(variable);
        if (value == nullptr) {
            continue;
        }
        if (const std::string kept = AbsoluteEntries(value); kept.empty()) {
            ::unsetenv(variable);
        } else if (kept != value) {
            ::setenv(variable, kept.c_str(), 1);
        }
    }
}

}  // namespace CorvexMaterial
