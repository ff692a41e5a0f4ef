#include "TextureShelf.h"

#include "DropOldest.h"

#include <utility>

namespace studio {

namespace {

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

std::int64_t ShelfEntry::Bytes() const
{
    constexpr std::int64_t kEntryBytes = 1024;
    const bool ownPixels = texture && texture->error.empty();
    return kEntryBytes + (ownPixels ? texture->image.sizeInBytes() : 0);
}

ShelfEntry& TextureShelf::Use(const std::string& path)
{
    const auto [found, isNew] = m_entries.try_emplace(path);
    ShelfEntry& entry = found->second;
    m_bytes += isNew ? entry.Bytes() : 0;
    entry.lastUse = ++m_uses;
    return entry;
}

ShelfEntry* TextureShelf::Find(const std::string& path)
{
    const auto found = m_entries.find(path);
    return found == m_entries.end() ? nullptr : &found->second;
}

void TextureShelf::Store(ShelfEntry& entry, TexturePointer texture)
{
    m_bytes -= entry.Bytes();
    entry.texture = std::move(texture);
    m_bytes += entry.Bytes();
}

std::int64_t TextureShelf::Room(std::int64_t wanted) const
{
    if (m_mostBytes - m_bytes >= wanted) {
        return wanted;
    }
    constexpr std::int64_t kSmallest = std::int64_t{64} * 64 * 4;
    std::int64_t room = m_mostBytes;
    for (const auto& [path, entry] : m_entries) {
        room -= IsHeld(entry) ? entry.Bytes() : 0;
    }
    return std::max(room, kSmallest);
}

void TextureShelf::DropUnused()
{
    if (m_bytes > m_mostBytes) {
        m_bytes = DropOldest(m_entries, m_mostBytes, CanBeDropped);
    }
}

}  // namespace studio
