#include "TextureCache.h"
#include "SampleFolder.h"
#include "Thumbnail.h"

#include <future>

namespace {

using studio::TextureCache;
using studio::TextureLimits;
using studio::TexturePointer;

class Cache : public testing::Test {
protected:
    std::string Save(const QString& name, const QColor& colour, QSize size = {64, 64})
    {
        return m_folder.Save(name, colour, size).toStdString();
    }
    void Write(const QString& name, const QByteArray& bytes) { m_folder.Write(name, bytes); }
    std::string PathOf(const QString& name) { return m_folder.PathOf(name).toStdString(); }

    /// Checks by themselves would come at any time.
    static TextureLimits Limits(std::int64_t bytes = 1 << 30)
    {
        return {bytes, 4096, std::chrono::hours(1)};
    }

private:
    CorvexTest::SampleFolder m_folder;
};

TEST_F(Cache, ReadsAFileOnceHoweverManyThreadsAsk)
{
    TextureCache cache(Limits());
    const std::string path = Save("a.png", Qt::red, {1024, 1024});
    std::vector<std::future<TexturePointer>> asking;
    for (int i = 0; i < 8; ++i) {
        static_cast<void>(cache.Request(path));
        asking.push_back(std::async(std::launch::async, [&] { return cache.Await(path); }));
    }
    std::set<TexturePointer> answers;
    for (auto& each : asking) {
        answers.insert(each.get());
    }
    answers.insert(cache.Request(path));
    ASSERT_EQ(answers.size(), 1U);
    EXPECT_EQ((*answers.begin())->image.pixelColor(5, 5), QColor(Qt::red));
}

TEST_F(Cache, TellsItsOwnThreadWhenATextureIsReady)
{
    TextureCache cache(Limits());
    const std::string path = Save("a.png", Qt::red);
    QSignalSpy ready(&cache, &TextureCache::textureReady);
    QThread* thread = nullptr;
    QObject::connect(
        &cache, &TextureCache::textureReady, &cache, [&] { thread = QThread::currentThread(); },
        Qt::DirectConnection);

    EXPECT_EQ(cache.Request(path), nullptr);
    ASSERT_TRUE(ready.wait());
    EXPECT_EQ(ready.front().front().toString().toStdString(), path);
    EXPECT_EQ(thread, cache.thread());
    EXPECT_NE(cache.Request(path), nullptr);
    EXPECT_EQ(cache.Request(""), nullptr);
    EXPECT_EQ(cache.Await(""), nullptr);
}

TEST_F(Cache, ReadsAChangedFileAgainAndAnUnchangedOneNot)
{
    TextureCache cache(Limits());
    const std::string path = Save("a.png", Qt::red);
    const TexturePointer red = cache.Await(path);
    EXPECT_EQ(cache.Await(path), red);

    Save("a.png", Qt::blue, {65, 64});
    EXPECT_EQ(cache.Request(path), red) << "a request looks at no file";
    QCoreApplication::processEvents();
    QSignalSpy ready(&cache, &TextureCache::textureReady);
    cache.CheckFiles();
    ASSERT_TRUE(ready.wait());
    EXPECT_EQ(ready.count(), 1);
    const TexturePointer blue = cache.Request(path);
    EXPECT_EQ(blue->image.pixelColor(0, 0), QColor(Qt::blue));
    EXPECT_NE(blue->id, red->id);
    EXPECT_EQ(red->image.pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(Cache, FindsChangesByItselfAfterAWhile)
{
    TextureCache cache({1 << 30, 4096, std::chrono::milliseconds(5)});
    const std::string path = Save("a.png", Qt::red);
    static_cast<void>(cache.Await(path));
    QSignalSpy ready(&cache, &TextureCache::textureReady);
    ASSERT_TRUE(ready.wait());
    Save("a.png", Qt::blue, {65, 64});
    // The writing itself may be seen half way.
    while (cache.Request(path)->image.pixelColor(0, 0) != QColor(Qt::blue)) {
        ASSERT_TRUE(ready.wait());
    }
}

TEST_F(Cache, ShowsTheSamePatternForAllUnreadableFilesUntilTheyChange)
{
    TextureCache cache(Limits());
    const std::string path = PathOf("later.tga");
    const TexturePointer missing = cache.Await(path);
    EXPECT_NE(missing->error, "");
    EXPECT_NE(missing->image.pixelColor(0, 0), missing->image.pixelColor(8, 0));
    EXPECT_TRUE(studio::ThumbnailOf(*missing, 32).isNull());

    Write("later.tga", "no image");
    const TexturePointer damaged = cache.Await(path);
    EXPECT_NE(damaged->error, missing->error);
    EXPECT_EQ(damaged->id, missing->id);
    EXPECT_EQ(cache.Await(path), damaged) << "not tried again without a change";

    QFile::remove(QString::fromStdString(path));
    QFile::copy(IMAGES_TEST_DATA "/rgb24-pil.tga", QString::fromStdString(path));
    EXPECT_EQ(cache.Await(path)->error, "");
}

TEST_F(Cache, DropsTheLeastRecentlyUsedButNeverWhatIsHeld)
{
    constexpr std::int64_t kOne = 64 * 64 * 4;
    TextureCache cache(Limits(4 * kOne));
    const TexturePointer held = cache.Await(Save("held.png", Qt::red));
    std::vector<std::weak_ptr<const studio::Texture>> others;
    for (int i = 0; i < 6; ++i) {
        others.push_back(cache.Await(Save(QString("%1.png").arg(i), Qt::green)));
    }
    EXPECT_TRUE(others.front().expired());
    EXPECT_FALSE(others.back().expired());
    EXPECT_EQ(cache.Request(PathOf("held.png")), held);
    std::int64_t kept = 0;
    for (const auto& other : others) {
        kept += other.expired() ? 0 : kOne;
    }
    EXPECT_LE(kept + kOne, 5 * kOne) << "one more than the limit while it is handed over";
}

TEST_F(Cache, ScalesFurtherTexturesDownWhenThoseHeldFillIt)
{
    constexpr std::int64_t kOne = 256 * 256 * 4;
    TextureCache cache(Limits(2 * kOne));
    std::vector<TexturePointer> held;
    std::int64_t total = 0;
    for (int i = 0; i < 8; ++i) {
        held.push_back(cache.Await(Save(QString("%1.png").arg(i), Qt::red, {256, 256})));
        EXPECT_EQ(held.back()->error, "");
        total += held.back()->image.sizeInBytes();
    }
    EXPECT_EQ(held.front()->image.width(), 256);
    EXPECT_GE(held.back()->image.width(), 32);
    EXPECT_LT(total, 5 * kOne / 2);
}

TEST_F(Cache, EndsWhileFilesAreStillWaiting)
{
    int announced = 0;
    const std::string path = Save("large.png", Qt::red, {2048, 2048});
    {
        TextureCache cache(Limits());
        QObject::connect(&cache, &TextureCache::textureReady, &cache, [&] { ++announced; });
        static_cast<void>(cache.Request(path));
        for (int i = 0; i < 50; ++i) {
            static_cast<void>(cache.Request(PathOf(QString("%1.png").arg(i))));
        }
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(announced, 0);
}

TEST_F(Cache, ThumbnailsFitWithTheirProportions)
{
    TextureCache cache(Limits());
    const auto wide = cache.Await(Save("wide.png", Qt::red, {400, 100}));
    EXPECT_EQ(studio::ThumbnailOf(*wide, 100).size(), QSize(100, 25));
    const auto thin = cache.Await(Save("thin.png", Qt::red, {2000, 1}));
    EXPECT_EQ(studio::ThumbnailOf(*thin, 100).size(), QSize(100, 1));
    const auto small = cache.Await(Save("small.png", Qt::red, {16, 16}));
    EXPECT_EQ(studio::ThumbnailOf(*small, 100).size(), QSize(16, 16));
}

}  // namespace
