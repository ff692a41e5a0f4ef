#include "studio/images/TextureShelf.h"

#include <algorithm>
#include <vector>

namespace studio {

namespace {

/// An unreadable file costs its entry only, but many of them cost something too.
std::int64_t BytesOf(const ShelfEntry& entry)
{
    constexpr std::int64_t kEntryBytes = 1024;
    const bool ownPixels = entry.texture && entry.texture->error.empty();
    return kEntryBytes + (ownPixels ? entry.texture->image.sizeInBytes() : 0);
}

/// A texture that nobody fetched yet must stay, or a small shelf would read it again and again.
bool IsHeld(const ShelfEntry& entry)
{
    return !entry.fetched || entry.waiting > 0 || entry.texture.use_count() > 1;
}

bool CanBeDropped(const ShelfEntry& entry)
{
    return !IsHeld(entry) && !entry.looking && entry.looksAsked == entry.looksDone;
}

}  // namespace

ShelfEntry& TextureShelf::Use(const std::string& path)
{
    ShelfEntry& entry = m_entries[path];
    entry.lastUse = ++m_uses;
    return entry;
}

ShelfEntry* TextureShelf::Find(const std::string& path)
{
    const auto found = m_entries.find(path);
    return found == m_entries.end() ? nullptr : &found->second;
}

std::int64_t TextureShelf::Room() const
{
    constexpr std::int64_t kSmallest = std::int64_t{64} * 64 * 4;
    std::int64_t room = m_mostBytes;
    for (const auto& [path, entry] : m_entries) {
        room -= IsHeld(entry) ? BytesOf(entry) : 0;
    }
    return std::max(room, kSmallest);
}

void TextureShelf::DropUnused()
{
    std::int64_t total = 0;
    for (const auto& [path, entry] : m_entries) {
        total += BytesOf(entry);
    }
    if (total <= m_mostBytes) {
        return;
    }
    using Place = std::map<std::string, ShelfEntry>::iterator;
    std::vector<Place> unused;
    for (auto place = m_entries.begin(); place != m_entries.end(); ++place) {
        if (CanBeDropped(place->second)) {
            unused.push_back(place);
        }
    }
    std::sort(unused.begin(), unused.end(), [](const Place& left, const Place& right) {
        return left->second.lastUse < right->second.lastUse;
    });
    for (const Place& place : unused) {
        if (total <= m_mostBytes) {
            return;
        }
        total -= BytesOf(place->second);
        m_entries.erase(place);
    }
}

}  // namespace studio
