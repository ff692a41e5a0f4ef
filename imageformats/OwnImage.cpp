#include "OwnImage.h"

#include "OwnFormats.h"

#include <QFileInfo>
#include <QIODevice>

#include <algorithm>
#include <memory>

namespace studio {

namespace {

/// Hands the pixels over as they are; at 2048 by 2048 a copy would cost as much as the decoding.
QImage TakePixels(RgbaImage&& decoded)
{
    const int width = static_cast<int>(decoded.extent.width);
    const int height = static_cast<int>(decoded.extent.height);
    auto pixels = std::make_unique<std::vector<std::uint8_t>>(std::move(decoded.pixels));
    std::uint8_t* data = pixels->data();
    const auto release = [](void* kept) { delete static_cast<std::vector<std::uint8_t>*>(kept); };
    return {data,    width,           height, qsizetype{width} * 4, QImage::Format_RGBA8888,
            release, pixels.release()};
}

}  // namespace

std::span<const std::byte> BytesOf(const QByteArray& bytes)
{
    return std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

std::string LowerSuffix(const QString& path)
{
    return QFileInfo(path).suffix().toLower().toStdString();
}

QImage ReadOwnImage(const OwnFormat& format, QIODevice& device)
{
    // An uncompressed image of the largest size with its header and colour map just fits.
    constexpr qint64 kMostFileBytes = qint64{kMostImageBytes} + (qint64{1} << 20);
    // Memory is taken for all that is asked for, so ask for no more than there is.
    const qint64 available = device.isSequential() ? kMostFileBytes : device.bytesAvailable();
    const QByteArray file = device.read(std::min(available, kMostFileBytes));
    return TakePixels(format.decode(BytesOf(file)));
}

}  // namespace studio
