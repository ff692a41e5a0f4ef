#pragma once

#include <QImage>
#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace studio {

/// The pixels of one state of one image file. Never changes, so any thread may read it.
struct Texture {
    /// Unique in the process and never used for other pixels, so that a renderer uploads each once.
    /// All unreadable files share the placeholder's.
    std::uint64_t id = 0;
    /// Format_RGBA8888: straight alpha, top row first, colours as stored in the file (sRGB). Never
    /// null, no side longer than the cache's limit.
    QImage image;
    bool hasAlpha = false;  ///< some pixel is not opaque
    std::string error;      ///< why the image is the placeholder pattern; empty when it was read
};

using TexturePointer = std::shared_ptr<const Texture>;

struct TextureLimits {
    /// Decoded pixels kept in all. Textures that somebody holds are never dropped; when they alone
    /// fill this, further ones are scaled down instead.
    std::int64_t bytes = std::int64_t{1} << 30;
    int side = 4096;  ///< pixels; larger images are scaled down, with their proportions
    /// How often the files of all known textures are looked at for changes.
    std::chrono::milliseconds checkInterval{1000};
};

/// Decodes every image file once, on worker threads, however many views and shapes use it. Created
/// and destroyed on the user-interface thread.
class TextureCache : public QObject {
    Q_OBJECT
public:
    explicit TextureCache(const TextureLimits& limits = {}, QObject* parent = nullptr);
    /// Waits for the files that are being decoded; nobody may wait in Await any more.
    ~TextureCache() override;

    /// What is known of the file at this path (UTF-8); null while it is read for the first time,
    /// and for an empty path. While a changed file is read anew, still the old pixels. Never
    /// touches the file itself. Any thread.
    [[nodiscard]] TexturePointer Request(const std::string& path);

    /// The same, but looks at the file now and waits until it is read; null for an empty path only.
    /// Any thread.
    [[nodiscard]] TexturePointer Await(const std::string& path);

    /// Looks at the files of all known textures on the worker threads; reads those again that
    /// changed, appeared or vanished.
    void CheckFiles();

Q_SIGNALS:
    /// Request answers something new for this path. From the event loop of the cache's own thread.
    void textureReady(const QString& path);
    /// The same, at once, on the thread that read the file.
    void textureRead(const QString& path);

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace studio
