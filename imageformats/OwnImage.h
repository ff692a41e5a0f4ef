#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

#include <cstddef>
#include <span>
#include <string>

class QIODevice;

namespace studio {

struct OwnFormat;

[[nodiscard]] std::span<const std::byte> BytesOf(const QByteArray& bytes);

/// Of a file's name: what follows the last dot, in lower case.
[[nodiscard]] std::string LowerSuffix(const QString& path);

/// Reads the device to its end. Format_RGBA8888. Errors: ImageError.
[[nodiscard]] QImage ReadOwnImage(const OwnFormat& format, QIODevice& device);

}  // namespace studio
