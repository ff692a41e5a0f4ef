#pragma once

#include <string>
#include <string_view>

namespace CorvexMaterial {

/// A list of folders as in PATH without the entries that depend on the current folder: empty and
/// relative ones. What lies in a folder that someone happens to work in must not be run.
[[nodiscard]] std::string AbsoluteEntries(std::string_view list);

/// Does that to the variables of this process by which programs, plug-ins and settings are found,
/// for itself and for what it starts. Call it before any thread is started.
void DropRelativeSearchPaths();

}  // namespace CorvexMaterial
