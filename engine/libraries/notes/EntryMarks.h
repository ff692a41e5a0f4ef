#pragma once

#include <cstdint>
#include <unordered_map>

namespace studio {

inline constexpr int kBestRating = 5;

/// What a user thinks of an entry; his own, not the library's.
struct EntryMark {
    bool isFavourite = false;
    int rating = 0;         ///< 1 to `kBestRating`; 0 = none
    std::int64_t used = 0;  ///< larger the later; 0 = not lately
};

/// Of one library, by the ids of its entries; one that is not in it has no mark.
using EntryMarks = std::unordered_map<std::int64_t, EntryMark>;

[[nodiscard]] inline EntryMark MarkOf(const EntryMarks& marks, std::int64_t id)
{
    const auto found = marks.find(id);
    return found == marks.end() ? EntryMark() : found->second;
}

}  // namespace studio
