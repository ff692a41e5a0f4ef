#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace studio {

/// Erases entries of a map until the rest takes no more than so many bytes: of those that may go,
/// the ones first that were not used for the longest time. An entry has `Bytes()` and a `lastUse`
/// that grows. Returns the bytes of the rest.
template <typename Entries, typename MayGo>
std::int64_t DropOldest(Entries& entries, std::int64_t mostBytes, const MayGo& mayGo)
{
    std::int64_t bytes = 0;
    for (const auto& [key, entry] : entries) {
        bytes += entry.Bytes();
    }
    if (bytes <= mostBytes) {
        return bytes;
    }
    std::vector<typename Entries::iterator> unused;
    for (auto item = entries.begin(); item != entries.end(); ++item) {
        if (mayGo(item->second)) {
            unused.push_back(item);
        }
    }
    std::sort(unused.begin(), unused.end(), [](const auto& left, const auto& right) {
        return left->second.lastUse < right->second.lastUse;
    });
    for (auto item = unused.begin(); item != unused.end() && bytes > mostBytes; ++item) {
        bytes -= (*item)->second.Bytes();
        entries.erase(*item);
    }
    return bytes;
}

}  // namespace studio
