#include "studio/images/OwnFormats.h"
#include "studio/images/OwnImage.h"
#include "studio/images/TextureFile.h"
#include "tests/images/fuzz/FuzzEntry.h"
#include "tests/support/SampleFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <random>

namespace {

/// The same on every system, which the distributions of the library are not.
class Dice {
public:
    qsizetype Below(qsizetype limit)
    {
        return static_cast<qsizetype>(m_engine() % static_cast<std::uint32_t>(limit));
    }

private:
    std::mt19937 m_engine{20250611};
};

QByteArray WithFlippedBits(QByteArray bytes, Dice& dice)
{
    // Most decisions are made by the first bytes.
    const bool inHeader = dice.Below(2) == 0;
    const qsizetype end = inHeader ? std::min<qsizetype>(bytes.size(), 128) : bytes.size();
    for (qsizetype flips = 1 + dice.Below(4); flips > 0; --flips) {
        const qsizetype at = dice.Below(end);
        bytes[at] = static_cast<char>(bytes.at(at) ^ (1 << dice.Below(8)));
    }
    return bytes;
}

QByteArray ContentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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
    Dice dice;
    for (const QFileInfo& sample : SampleFiles()) {
        SCOPED_TRACE(sample.fileName().toStdString());
        const QByteArray good = ContentOf(sample.filePath());
        ASSERT_GT(good.size(), 0);
        for (int i = 0; i < 8; ++i) {
            ExpectImageOrReason(good.first(good.size() * i / 8), sample.suffix());
            ExpectImageOrReason(WithFlippedBits(good, dice), sample.suffix());
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

TEST_F(Damaged, DecodersKeepTheirPromisesForAnyBytes)
{
    Dice dice;
    for (const QFileInfo& sample : SampleFiles()) {
        const QByteArray good = ContentOf(sample.filePath());
        for (const studio::OwnFormat& format : studio::OwnFormats()) {
            if (sample.suffix().toStdString() != format.name) {
                continue;
            }
            for (int i = 0; i < 150; ++i) {
                const QByteArray cut = good.first(dice.Below(good.size() + 1));
                FuzzDecoder(format, studio::BytesOf(cut));
                const QByteArray flipped = WithFlippedBits(good, dice);
                FuzzDecoder(format, studio::BytesOf(flipped));
            }
        }
    }
}

}  // namespace
