#pragma once

#include "EntryMarks.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace studio {

class LibraryFile;

/// What a person wants to know of an entry: a material's colour, amounts, textures, plug-in and
/// custom fields, a texture's file, what is noted of either and what the user thinks of it. Names
/// and values appear as text whatever they hold. Errors: those of reading the file.
[[nodiscard]] QString LibraryToolTipText(LibraryFile& file, std::int32_t index,
                                         const std::vector<std::string>& fieldNames,
                                         const EntryMark& mark = {});

}  // namespace studio
