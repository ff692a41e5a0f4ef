#pragma once

#include "MaterialText.h"

namespace studio {

class LibraryFile;

/// The material of an entry, texture files with their full paths. Errors: FileFailed, naming the
/// library and the entry.
[[nodiscard]] MaterialReading ReadMaterial(LibraryFile& library, std::int32_t index);

/// The file of an entry of a texture library. Errors: the same.
[[nodiscard]] std::string ReadTexture(LibraryFile& library, std::int32_t index);

/// An entry as it is added to another library, under a name that is free there, with its picture
/// and all that is noted of it. Errors: the same.
[[nodiscard]] NewEntry CopiedEntry(LibraryFile& source, std::int32_t index, LibraryFile& target,
                                   const FieldNames& fieldNames);

}  // namespace studio
