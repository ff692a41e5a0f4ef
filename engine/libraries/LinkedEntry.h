#pragma once

#include "LibraryEntry.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <string>

namespace studio {

class LibraryFile;

/// An entry that materials of scenes are linked to, as it is now.
struct LinkedEntry {
    EntryOrigin origin;
    std::string name;
    CorvexDB::udtMaterial material;
};

/// Found by its id; by its name where that is gone, as in a library that was put together anew.
/// Errors: FileFailed when the library or the entry is not there or cannot be read; a person reads
/// why.
[[nodiscard]] LinkedEntry ReadLinkedEntry(const std::string& library, EntryId id,
                                          const std::string& name);
[[nodiscard]] LinkedEntry ReadLinkedEntry(LibraryFile& library, EntryId id,
                                          const std::string& name);

/// What takes the place of an entry, and what it takes the place of.
struct EntryReplacement {
    NewEntry before;
    NewEntry after;
};

/// With what only a later program knows of the entry. Errors: FileFailed.
[[nodiscard]] EntryReplacement ReplacementOf(LibraryFile& library, EntryId id, NewEntry after);

}  // namespace studio
