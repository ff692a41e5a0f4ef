#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <string>

namespace studio {

class LibraryFile;

/// A name for a material that has none, after what one sees of it: its plug-in, its texture or its
/// colour.
[[nodiscard]] std::string DescriptiveName(const CorvexDB::udtMaterial& material);

/// The name itself, or the first of "name 2", "name 3", ... that the library does not have yet.
[[nodiscard]] std::string UnusedName(LibraryFile& library, const std::string& name);

}  // namespace studio
