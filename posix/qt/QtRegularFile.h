#pragma once

#include <QByteArray>
#include <QImage>

#include <cstdint>
#include <string>

class QFile;

namespace CorvexMaterial {

/// Of any image file: what the largest image takes uncompressed.
inline constexpr std::int64_t kMostPictureFileBytes = std::int64_t{1} << 30;

/// Opens the file of this name as RegularFile does. Why not, or empty.
[[nodiscard]] std::string OpenRegular(QFile& file, std::int64_t mostBytes);

/// Its whole content. Errors: FileFailed; the text is the path, a colon and the cause.
[[nodiscard]] QByteArray ReadRegular(const QString& path, std::int64_t mostBytes);

/// An image file by its content, whatever its name ends in. Errors: as above.
[[nodiscard]] QImage ReadPicture(const QString& path);

}  // namespace CorvexMaterial
