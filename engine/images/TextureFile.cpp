#include "TextureFile.h"

#include "ImageScaling.h"
#include "OwnFormats.h"
#include "OwnImage.h"
#include "QtRegularFile.h"
#include "TexturePixels.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>

#include <exception>

namespace studio {

namespace {

class TextureFileText {
    Q_DECLARE_TR_FUNCTIONS(studio::TextureFile)
};

std::filesystem::path PathFromUtf8(const std::string& path)
{
    return {std::u8string(path.begin(), path.end())};
}

/// Decoders that can shrink while they read (JPEG) then need a fraction of the memory and time. PNG
/// files with less than four bytes a pixel would need more.
void AskForSmallerImage(QImageReader& reader, const ImageBounds& bounds)
{
    const QSize size = reader.size();
    const bool widens =
        reader.format() == "png" && QImage::toPixelFormat(reader.imageFormat()).bitsPerPixel() < 32;
    if (size.isValid() && !widens && reader.supportsOption(QImageIOHandler::ScaledSize)) {
        const QSize fitted = FittedSize(size, bounds);
        if (fitted != size) {
            reader.setScaledSize(fitted);
        }
    }
}

struct DecodedImage {
    QImage image;
    QSize size;  ///< of the one in the file
};

DecodedImage ReadWithToolkit(QFile& file, const ImageBounds& bounds)
{
    QImageReader reader(&file);
    if (reader.format() == "tga") {
        // Ours refused it, and the toolkit's reader is no better at it: it guesses.
        throw ImageError(TextureFileText::tr("The TGA file is damaged.").toStdString());
    }
    // The toolkit counts four bytes a pixel, also for those of one: 16384 by 16384 of any kind.
    constexpr int kMostMegabytes = 1024;
    QImageReader::setAllocationLimit(kMostMegabytes);
    const QSize size = reader.size();
    AskForSmallerImage(reader, bounds);
    const QImage image = reader.read();
    if (image.isNull()) {
        throw ImageError(reader.errorString().toStdString());
    }
    return {image, size.isValid() ? size : image.size()};
}

DecodedImage ReadAnyType(const QString& path, const ImageBounds& bounds)
{
    QFile file(path);
    const std::string obstacle =
        CorvexMaterial::OpenRegular(file, CorvexMaterial::kMostPictureFileBytes);
    if (!obstacle.empty()) {
        throw ImageError(obstacle);
    }
    const QByteArray head = file.peek(kFormatHeadBytes);
    // First of all: the toolkit's own reader of Targa files, where it is installed, reads only
    // some.
    if (const OwnFormat* own = FindOwnFormat(BytesOf(head), LowerSuffix(path))) {
        const QImage image = ReadOwnImage(*own, file);
        return {image, image.size()};
    }
    return ReadWithToolkit(file, bounds);
}

}  // namespace

std::optional<FileState> StateOfFile(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path file = PathFromUtf8(path);
    // Neither a folder nor a pipe, which would keep its reader waiting.
    if (!std::filesystem::is_regular_file(file, error)) {
        return std::nullopt;
    }
    const FileState state{std::filesystem::last_write_time(file, error),
                          std::filesystem::file_size(file, error)};
    return error ? std::nullopt : std::optional(state);
}

bool IsTextureFile(const std::string& path)
{
    const QString name = QString::fromStdString(path);
    QFile file(name);
    if (!CorvexMaterial::OpenRegular(file, CorvexMaterial::kMostPictureFileBytes).empty()) {
        return false;
    }
    const QByteArray head = file.peek(kFormatHeadBytes);
    QImageReader reader(&file);
    return FindOwnFormat(BytesOf(head), LowerSuffix(name)) != nullptr ||
           (reader.canRead() && reader.format() != "tga");
}

FileImage ReadTextureFile(const std::string& path, const ImageBounds& bounds)
{
    try {
        DecodedImage decoded = ReadAnyType(QString::fromStdString(path), bounds);
        TexturePixels pixels = FittedPixels(std::move(decoded.image), bounds);
        if (pixels.image.isNull()) {
            throw ImageError(TextureFileText::tr("There is not enough memory.").toStdString());
        }
        return {std::move(pixels.image), pixels.hasAlpha, {}, decoded.size};
    } catch (const std::exception& error) {
        return {{}, false, error.what()};
    }
}

}  // namespace studio
