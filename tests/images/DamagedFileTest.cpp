#include "OwnFormats.h"
#include "OwnImage.h"
#include "SampleFolder.h"
#include "Testing.h"
#include "TextureFile.h"

namespace {

using CorvexTest::ContentOf;

QFileInfoList SampleFiles()
{
    QFileInfoList files = QDir(IMAGES_TEST_DATA).entryInfoList(QDir::Files, QDir::Name);
    files.removeIf([](const QFileInfo& file) { return file.suffix() == "md"; });
    return files;
}

class Damaged : public testing::Test {
protected:
    void ExpectImageOrReason(const QByteArray& bytes, const QString& suffix)
    {
        const QString path = m_folder.Write("damaged." + suffix, bytes);
        const studio::ImageBounds bounds{64, 64 * 64 * 4};
        const studio::FileImage read = studio::ReadTextureFile(path.toStdString(), bounds);
        EXPECT_EQ(read.image.isNull(), !read.error.empty());
        EXPECT_LE(read.image.sizeInBytes(), bounds.bytes);
    }

private:
    CorvexTest::SampleFolder m_folder;
};

TEST_F(Damaged, FilesOfEveryTypeGiveAnImageOrAReason)
{
    const QtMessageHandler loud = qInstallMessageHandler([](auto, const auto&, const auto&) {});
    for (const QFileInfo& sample : SampleFiles()) {
        SCOPED_TRACE(sample.fileName().toStdString());
        const QByteArray good = ContentOf(sample.filePath());
        ASSERT_GT(good.size(), 0);
        for (int i = 0; i < 8; ++i) {
            ExpectImageOrReason(good.first(good.size() * i / 8), sample.suffix());
            ExpectImageOrReason(QByteArray(good).replace(16 * i, 8, "damaged!"), sample.suffix());
        }
    }
    qInstallMessageHandler(loud);
}

TEST_F(Damaged, OwnFormatsNeverShowHalfAFile)
{
    for (const QFileInfo& sample : SampleFiles()) {
        const QByteArray good = ContentOf(sample.filePath());
        const auto* format =
            studio::FindOwnFormat(studio::BytesOf(good), sample.suffix().toStdString());
        if (format == nullptr) {
            continue;
        }
        for (const qsizetype length : {qsizetype{0}, qsizetype{17}, good.size() / 2}) {
            const QByteArray part = good.first(length);
            EXPECT_THROW(format->decode(studio::BytesOf(part)), studio::ImageError)
                << sample.fileName().toStdString() << " cut to " << length;
        }
    }
}

}  // namespace
