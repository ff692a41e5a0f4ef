#pragma once

#include "EntryDetails.h"
#include "SearchProperties.h"

#include <cstdint>
#include <string>

namespace studio {

/// Stays with an entry for good, through the trash and back. Never used again. Grows in file order.
using EntryId = std::int64_t;

/// Something to be added.
struct NewEntry {
    std::string name;
    std::string json;  ///< one object, see MaterialText.h and TextureText.h
    std::string png;   ///< the thumbnail; empty = none
    SearchValues search;
    EntryDetails details{};
};

struct DescribedEntry {
    EntryId id = 0;
    EntryDetails details;
};

/// A tag or a collection, and how many entries have it.
struct LabelUse {
    std::string name;
    std::int64_t entries = 0;
};

/// The entry that a material came from, and the state of its record then.
struct EntryOrigin {
    std::string library;  ///< its file, absolute
    EntryId id = 0;
    std::string revision;  ///< see `LibraryFile::RevisionOf`

    bool operator==(const EntryOrigin&) const = default;
};

/// What an edit makes of an entry.
struct EntryContent {
    std::string json;
    std::string fields;  ///< see TextProperty::Fields
};

struct EntryPicture {
    EntryId id = 0;
    std::string png;
};

struct TrashedEntry {
    EntryId id = 0;
    std::string name;
};

}  // namespace studio
