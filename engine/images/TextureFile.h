#pragma once

#include <QImage>
#include <QSize>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace studio {

/// What tells one content of a file from the next without reading it.
struct FileState {
    std::filesystem::file_time_type changed;
    std::uintmax_t bytes = 0;

    bool operator==(const FileState&) const = default;
};

/// Nothing when there is no regular file at the path (UTF-8).
[[nodiscard]] std::optional<FileState> StateOfFile(const std::string& path);

/// Larger images are scaled down, with their proportions, until they keep to both.
struct ImageBounds {
    int side = 0;
    std::int64_t bytes = 0;
};

struct FileImage {
    QImage image;  ///< Format_RGBA8888, straight alpha; null when the file cannot be read
    bool hasAlpha = false;
    std::string error;  ///< for a person; empty on success
    QSize size{};       ///< pixels, of the image in the file, before it was scaled down
};

/// Whether the file begins as an image of a type that the process knows; its pixels may be damaged
/// all the same. Any thread.
[[nodiscard]] bool IsTextureFile(const std::string& path);

/// Reads an image of any type that the process knows. Any thread; needs no application object.
[[nodiscard]] FileImage ReadTextureFile(const std::string& path, const ImageBounds& bounds);

}  // namespace studio
