#pragma once

#include <QCache>
#include <QDateTime>
#include <QPixmap>

namespace CorvexMaterial {

enum class ThumbnailState { Empty, Missing, Unreadable, Picture };

struct Thumbnail {
    ThumbnailState state = ThumbnailState::Empty;
    QPixmap picture;
};

/// Thumbnails of texture files, each decoded and scaled once until its file changes on disk.
class ThumbnailCache {
public:
    ThumbnailCache();

    [[nodiscard]] Thumbnail Get(const QString& file);
    void Clear() { m_entries.clear(); }

private:
    struct Entry {
        QDateTime modified;
        qint64 bytes;
        QPixmap picture;
    };

    QCache<QString, Entry> m_entries;
};

}  // namespace CorvexMaterial
