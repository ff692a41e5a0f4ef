#include "TextureCache.h"

#include "TextureShelf.h"

#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace studio {

namespace {

std::uint64_t NextId()
{
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

/// Colours that no texture has by accident.
QImage PlaceholderPattern()
{
    constexpr int kSide = 64;
    constexpr int kSquare = 8;
    QImage image(kSide, kSide, QImage::Format_RGBA8888);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const bool light = (x / kSquare + y / kSquare) % 2 == 0;
            image.setPixelColor(x, y, light ? QColor(255, 0, 255) : QColor(48, 48, 48));
        }
    }
    return image;
}

}  // namespace

struct TextureCache::Parts {
    Parts(TextureCache& cache, const TextureLimits& given)
        : owner(cache), limits(given), shelf(given.bytes)
    {
    }

    void LookLater(const std::string& path, ShelfEntry& entry);
    void Look(const std::string& path, std::unique_lock<std::mutex>& lock);
    void ReadInto(ShelfEntry& entry, const std::string& path, std::unique_lock<std::mutex>& lock);
    [[nodiscard]] TexturePointer Read(const std::string& path, std::int64_t room) const;

    TextureCache& owner;
    TextureLimits limits;
    QImage placeholder = PlaceholderPattern();
    std::uint64_t placeholderId = NextId();

    std::mutex mutex;  ///< guards the shelf
    std::condition_variable looked;
    TextureShelf shelf;

    QTimer checkTimer;
    QThreadPool pool;  ///< last, so that its threads end before what they use
};

/// One look that is asked for and not done yet is enough, however many ask.
void TextureCache::Parts::LookLater(const std::string& path, ShelfEntry& entry)
{
    if (entry.looksAsked != entry.looksDone) {
        return;
    }
    ++entry.looksAsked;
    pool.start([this, path] {
        std::unique_lock lock(mutex);
        Look(path, lock);
    });
}

/// Does all looks asked for so far and meanwhile, unless another thread is at it.
void TextureCache::Parts::Look(const std::string& path, std::unique_lock<std::mutex>& lock)
{
    ShelfEntry* entry = shelf.Find(path);
    if (entry == nullptr || entry->looking) {
        return;
    }
    entry->looking = true;
    bool changed = false;
    while (entry->looksDone != entry->looksAsked) {
        const std::uint64_t asked = entry->looksAsked;
        lock.unlock();
        // Before the file is read: a change in the midst of it is then found by the next look.
        const std::optional<FileState> state = StateOfFile(path);
        lock.lock();
        const bool isFresh = entry->texture == nullptr || state != entry->state;
        if (isFresh) {
            ReadInto(*entry, path, lock);
            entry->state = state;
            changed = true;
        }
        entry->looksDone = asked;
        if (isFresh) {
            lock.unlock();  // whoever hears of it may request it at once
            Q_EMIT owner.textureRead(QString::fromStdString(path));
            lock.lock();
        }
    }
    entry->looking = false;
    if (changed) {
        shelf.DropUnused();
    }
    looked.notify_all();
}

void TextureCache::Parts::ReadInto(ShelfEntry& entry, const std::string& path,
                                   std::unique_lock<std::mutex>& lock)
{
    const std::int64_t room = shelf.Room(std::int64_t{4} * limits.side * limits.side);
    lock.unlock();
    TexturePointer texture = Read(path, room);
    lock.lock();
    shelf.Store(entry, std::move(texture));
    entry.fetched = false;
}

TexturePointer TextureCache::Parts::Read(const std::string& path, std::int64_t room) const
{
    const FileImage file = ReadTextureFile(path, {limits.side, room});
    const bool failed = file.image.isNull();
    return std::make_shared<const Texture>(Texture{
        failed ? placeholderId : NextId(),
        failed ? placeholder : file.image,
        file.hasAlpha,
        file.error,
    });
}

TextureCache::TextureCache(const TextureLimits& limits, QObject* parent)
    : QObject(parent), m_parts(std::make_unique<Parts>(*this, limits))
{
    m_parts->pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount(), 1, 4));
    connect(this, &TextureCache::textureRead, this, &TextureCache::textureReady,
            Qt::QueuedConnection);
    connect(&m_parts->checkTimer, &QTimer::timeout, this, &TextureCache::CheckFiles);
    m_parts->checkTimer.start(limits.checkInterval);
}

TextureCache::~TextureCache()
{
    m_parts->pool.clear();
    m_parts->pool.waitForDone();
}

TexturePointer TextureCache::Request(const std::string& path)
{
    if (path.empty()) {
        return nullptr;
    }
    const std::lock_guard lock(m_parts->mutex);
    ShelfEntry& entry = m_parts->shelf.Use(path);
    if (entry.texture == nullptr) {
        m_parts->LookLater(path, entry);
    } else {
        entry.fetched = true;
    }
    return entry.texture;
}

TexturePointer TextureCache::Await(const std::string& path)
{
    if (path.empty()) {
        return nullptr;
    }
    std::unique_lock lock(m_parts->mutex);
    ShelfEntry& entry = m_parts->shelf.Use(path);
    ++entry.waiting;
    const std::uint64_t asked = ++entry.looksAsked;
    // On this thread, for the workers may have a long queue.
    m_parts->Look(path, lock);
    m_parts->looked.wait(lock, [&] { return entry.looksDone >= asked; });
    --entry.waiting;
    entry.fetched = true;
    return entry.texture;
}

void TextureCache::CheckFiles()
{
    const std::lock_guard lock(m_parts->mutex);
    m_parts->shelf.DropUnused();  // what somebody has let go of since
    for (auto& [path, entry] : m_parts->shelf.All()) {
        if (entry.texture) {
            entry.fetched = true;
            m_parts->LookLater(path, entry);
        }
    }
}

}  // namespace studio
