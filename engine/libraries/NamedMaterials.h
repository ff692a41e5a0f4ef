#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <functional>
#include <optional>
#include <string>

namespace studio {

/// Looks up the materials of a library by name, in any case, texture files with their full paths.
/// What cannot be read counts as missing. Keeps the file open as long as it lives.
[[nodiscard]] std::function<std::optional<CorvexDB::udtMaterial>(const std::string& name)>
NamedMaterialsOf(const std::string& libraryFile);

}  // namespace studio
