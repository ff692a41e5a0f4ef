#include "textures/TextureImage.h"
#include "textures/ThumbnailCache.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using namespace CorvexMaterial;

class Thumbnails : public ::testing::Test {
protected:
    QString Save(const QString& name, QSize size, const QColor& color)
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const QString path = folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path;
    }
    QString Write(const QString& name, const QByteArray& bytes)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    QTemporaryDir folder;
    ThumbnailCache cache;
};

TEST_F(Thumbnails, AreMadeOnceUntilTheFileChanges)
{
    const QString file = Save("a.png", {600, 300}, Qt::red);
    const QPixmap first = cache.Get(file).picture;
    EXPECT_EQ(first.size(), QSize(208, 104));
    EXPECT_EQ(cache.Get(file).picture.cacheKey(), first.cacheKey());

    Save("a.png", {30, 20}, Qt::blue);
    const Thumbnail second = cache.Get(file);
    EXPECT_EQ(second.picture.size(), QSize(30, 20)) << "a small picture is not enlarged";
    EXPECT_EQ(second.picture.toImage().pixelColor(5, 5), QColor(Qt::blue));

    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(cache.Get(file).state, ThumbnailState::Missing);
}

TEST_F(Thumbnails, AVeryLongImageKeepsAColumn)
{
    EXPECT_EQ(cache.Get(Save("long.png", {1, 5000}, Qt::red)).picture.size(), QSize(1, 208));
}

TEST_F(Thumbnails, NothingReadableGivesNoPicture)
{
    EXPECT_EQ(cache.Get({}).state, ThumbnailState::Empty);
    EXPECT_EQ(cache.Get(folder.path()).state, ThumbnailState::Unreadable);
    EXPECT_EQ(cache.Get(Write("empty.png", {})).state, ThumbnailState::Unreadable);
    EXPECT_EQ(cache.Get(Write("text.jpg", "no image at all")).state, ThumbnailState::Unreadable);
    // Nobody ever writes into it, so opening it would wait for ever.
    const QString pipe = folder.filePath("pipe.png");
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
    EXPECT_EQ(cache.Get(Write("cut.bmp", bytes.left(30))).state, ThumbnailState::Unreadable);
    // A header of 60,000 by 60,000 pixels over no data: 14 GB if it were believed.
    const QByteArray extent = QByteArray::fromHex("60ea0000");
    const QByteArray huge = bytes.left(18) + extent + extent + bytes.mid(26);
    EXPECT_EQ(cache.Get(Write("huge.bmp", huge)).state, ThumbnailState::Unreadable);
}

}  // namespace
