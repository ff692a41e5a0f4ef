#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <cstdint>
#include <string>

namespace studio {

/// The entry of a library that a material is linked to, and how it was when it was taken.
struct LibraryLink {
    std::string library;     ///< its file, absolute
    std::int64_t entry = 0;  ///< in it
    std::string name;        ///< of the entry
    std::string revision;    ///< of its record
    /// As the shapes got it: what they have otherwise now are their own changes.
    CorvexDB::udtMaterial taken;

    bool operator==(const LibraryLink&) const = default;
};

/// A linked material that takes its entry as it is now: what the scene has changed stays.
[[nodiscard]] CorvexDB::udtMaterial Updated(const CorvexDB::udtMaterial& material,
                                            const CorvexDB::udtMaterial& taken,
                                            const CorvexDB::udtMaterial& now);

}  // namespace studio
