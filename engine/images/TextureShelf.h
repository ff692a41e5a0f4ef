#pragma once

#include "TextureCache.h"
#include "TextureFile.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace studio {

/// What is known of one file. A look checks whether the file changed, and reads it if it did.
struct ShelfEntry {
    TexturePointer texture;
    std::optional<FileState> state;  ///< of the file when it was read
    std::uint64_t looksAsked = 0;
    std::uint64_t looksDone = 0;
    bool looking = false;  ///< a thread is at it
    int waiting = 0;       ///< threads that wait for a look
    bool fetched = false;  ///< whoever asked for the texture has had it, or the time to fetch it
    std::uint64_t lastUse = 0;

    /// An unreadable file costs its entry only, but many of them cost something too.
    [[nodiscard]] std::int64_t Bytes() const;
};

/// The textures by path, within their share of memory. Takes no locks and touches no files.
class TextureShelf {
public:
    explicit TextureShelf(std::int64_t mostBytes) : m_mostBytes(mostBytes) {}

    /// New and empty where there was none; counts as a use. Stays in place until it is dropped.
    ShelfEntry& Use(const std::string& path);
    [[nodiscard]] ShelfEntry* Find(const std::string& path);
    [[nodiscard]] std::map<std::string, ShelfEntry>& All() { return m_entries; }

    void Store(ShelfEntry& entry, TexturePointer texture);

    /// For one more texture of at most so many bytes, everything dropped that can be; never
    /// nothing.
    [[nodiscard]] std::int64_t Room(std::int64_t wanted) const;

    /// Drops the textures that were not used for the longest time, until the rest fits or all of it
    /// is in use.
    void DropUnused();

private:
    std::map<std::string, ShelfEntry> m_entries;
    std::int64_t m_mostBytes;
    std::int64_t m_bytes = 0;  ///< of all entries
    std::uint64_t m_uses = 0;
};

}  // namespace studio
