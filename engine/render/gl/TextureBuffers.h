#pragma once

#include "GlHandles.h"
#include "TextureCache.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace studio {

/// Colour is decoded from sRGB before it is filtered, data is taken as it is stored.
enum class PixelUse { Colour, Data };

/// Uploads the pixels of each texture once for each use, however many shapes and views draw it.
/// Holds on to the pixels of what is being drawn, so that they are not read from disk again and
/// again; lets go of textures that nobody holds any more and, above its budget, of those that were
/// not drawn for the longest time.
class TextureBufferCache {
public:
    explicit TextureBufferCache(std::int64_t budgetBytes) : m_budgetBytes(budgetBytes) {}

    /// Name of a mipmapped, repeating texture, valid until the next `EndFrame`. Binds it to the
    /// active unit when it is new. Errors: OutOfMemory.
    GLuint TextureOf(const TexturePointer& texture, PixelUse use);
    void EndFrame();

    /// How many uploads there have been.
    [[nodiscard]] std::uint64_t Uploads() const { return m_uploads; }

private:
    struct Entry {
        GlTexture texture;
        std::int64_t bytes = 0;
        TexturePointer held;
        std::weak_ptr<const Texture> pixels;
        std::uint64_t lastUse = 0;  ///< a frame

        [[nodiscard]] std::int64_t Bytes() const { return bytes; }
    };
    using Key = std::pair<std::uint64_t, PixelUse>;

    std::int64_t m_budgetBytes;
    std::uint64_t m_frame = 0;
    std::uint64_t m_uploads = 0;
    std::map<Key, Entry> m_entries;
};

}  // namespace studio
