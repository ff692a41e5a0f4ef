#pragma once

#include <QCache>
#include <QPixmap>

#include <cstdint>
#include <utility>

namespace studio {

class LibraryFile;

/// Thumbnails of library entries as they are painted: decoded when first asked for, the least used
/// dropped beyond a few megabytes.
class LibraryThumbnails {
public:
    LibraryThumbnails();

    /// In a square of this many pixels at most. An entry without a usable picture gets a drawn
    /// sign. Errors: those of reading the file.
    struct Picture {
        QPixmap pixels;
        bool isStored = true;  ///< else it is the sign
    };
    [[nodiscard]] Picture Get(LibraryFile& file, std::int32_t index, int side);
    /// Of this entry.
    void Forget(std::int64_t id);
    void Clear() { m_pictures.clear(); }

private:
    using Key = std::pair<std::int64_t, int>;  ///< entry, side

    QCache<Key, Picture> m_pictures;
};

}  // namespace studio
