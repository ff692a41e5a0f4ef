#pragma once

#include "MaterialText.h"

namespace studio {

class LibraryFile;

/// The material of an entry, texture files with their full paths. Errors: FileFailed, naming the
/// library and the entry.
[[nodiscard]] MaterialReading ReadMaterial(LibraryFile& library, std::int32_t index);

/// The file of an entry of a texture library. Errors: the same.
[[nodiscard]] std::string ReadTexture(LibraryFile& library, std::int32_t index);

}  // namespace studio
