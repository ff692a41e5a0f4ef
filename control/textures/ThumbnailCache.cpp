#include "ThumbnailCache.h"

#include "TextureImage.h"

#include <QFileInfo>

namespace CorvexMaterial {

namespace {

/// Twice the size on the panel, so that it is sharp on a dense screen.
constexpr int kCachedSide = 208;
/// 64 pictures of that size are 11 MB.
constexpr int kEntries = 64;

}  // namespace

ThumbnailCache::ThumbnailCache() : m_entries(kEntries) {}

Thumbnail ThumbnailCache::Get(const QString& file)
{
    if (file.isEmpty()) {
        return {};
    }
    const QFileInfo info(file);
    if (!info.exists()) {
        return {ThumbnailState::Missing, {}};
    }
    const Entry* entry = m_entries.object(file);
    if (entry == nullptr || entry->modified != info.lastModified() || entry->bytes != info.size()) {
        auto fresh = std::make_unique<Entry>(
            Entry{info.lastModified(), info.size(),
                  QPixmap::fromImage(ReadTextureImage(file, kCachedSide).image)});
        entry = fresh.get();
        m_entries.insert(file, fresh.release());
    }
    const bool readable = !entry->picture.isNull();
    return {readable ? ThumbnailState::Picture : ThumbnailState::Unreadable, entry->picture};
}

}  // namespace CorvexMaterial
