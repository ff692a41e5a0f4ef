#include "SampleFolder.h"
#include "TextureImage.h"
#include "ThumbnailCache.h"

#include <QBuffer>

#include <sys/stat.h>

namespace {

using namespace CorvexMaterial;

class Thumbnails : public ::testing::Test {
protected:
    CorvexTest::SampleFolder folder;
    ThumbnailCache cache;
};

TEST_F(Thumbnails, AreMadeOnceUntilTheFileChanges)
{
    const QString file = folder.Save("a.png", Qt::red, {600, 300});
    const QPixmap first = cache.Get(file).picture;
    EXPECT_EQ(first.size(), QSize(208, 104));
    EXPECT_EQ(cache.Get(file).picture.cacheKey(), first.cacheKey());

    folder.Save("a.png", Qt::blue, {30, 20});
    const Thumbnail second = cache.Get(file);
    EXPECT_EQ(second.picture.size(), QSize(30, 20)) << "a small picture is not enlarged";
    EXPECT_EQ(second.picture.toImage().pixelColor(5, 5), QColor(Qt::blue));

    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(cache.Get(file).state, ThumbnailState::Missing);
}

TEST_F(Thumbnails, AVeryLongImageKeepsAColumn)
{
    EXPECT_EQ(cache.Get(folder.Save("long.png", Qt::red, {1, 5000})).picture.size(), QSize(1, 208));
}

TEST_F(Thumbnails, NothingReadableGivesNoPicture)
{
    EXPECT_EQ(cache.Get({}).state, ThumbnailState::Empty);
    EXPECT_EQ(cache.Get(folder.Path()).state, ThumbnailState::Unreadable);
    EXPECT_EQ(cache.Get(folder.Write("empty.png", {})).state, ThumbnailState::Unreadable);
    EXPECT_EQ(cache.Get(folder.Write("text.jpg", "no image at all")).state,
              ThumbnailState::Unreadable);
    // Nobody ever writes into it, so opening it would wait for ever.
    const QString pipe = folder.PathOf("pipe.png");
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(cache.Get(pipe).state, ThumbnailState::Unreadable);
}

TEST_F(Thumbnails, DamagedFilesEndQuietly)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImage image(200, 200, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(&buffer, "BMP"));
    EXPECT_EQ(cache.Get(folder.Write("cut.bmp", bytes.left(30))).state, ThumbnailState::Unreadable);
    // A header of 60,000 by 60,000 pixels over no data: 14 GB if it were believed.
    const QByteArray extent = QByteArray::fromHex("60ea0000");
    const QByteArray huge = bytes.left(18) + extent + extent + bytes.mid(26);
    EXPECT_EQ(cache.Get(folder.Write("huge.bmp", huge)).state, ThumbnailState::Unreadable);
}

}  // namespace
