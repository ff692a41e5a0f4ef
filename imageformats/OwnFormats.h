#pragma once

#include "RgbaImage.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace studio {

/// An image format that the windowing toolkit does not read, or not in all its variants.
struct OwnFormat {
    std::string_view name;  ///< lower case; also the suffix of its files
    bool hasSignature;      ///< its files are known by their first bytes alone
    std::optional<ImageExtent> (*extentOf)(std::span<const std::byte> file);
    RgbaImage (*decode)(std::span<const std::byte> file);
};

/// How many of the first bytes of a file extentOf and FindOwnFormat look at, at most.
constexpr std::size_t kFormatHeadBytes = 128;

/// All of them, in the order in which they are tried.
[[nodiscard]] std::span<const OwnFormat> OwnFormats();

/// The format of a file by its head; those without a signature only under their own suffix, in
/// lower case. Null when it is none of them.
[[nodiscard]] const OwnFormat* FindOwnFormat(std::span<const std::byte> head,
                                             std::string_view suffix);

}  // namespace studio
