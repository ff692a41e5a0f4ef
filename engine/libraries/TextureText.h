#pragma once

#include "LibraryEntry.h"

#include <string>
#include <string_view>

namespace studio {

/// An entry of a texture library: one JSON object with the key `file`. Files are stored relative to
/// the library's folder as those of materials are.
[[nodiscard]] std::string JsonOfTexture(const std::string& file, const std::string& folder);

/// Errors: FileFailed with the bare cause when the text is no JSON object with a file.
[[nodiscard]] std::string TextureOfJson(std::string_view json, const std::string& folder);

/// Ready to be added to the library in this folder; named after the file. Width and height in
/// pixels, 0 when they are not known.
struct PixelExtent {
    int width = 0;
    int height = 0;
};
[[nodiscard]] NewEntry EntryOfTexture(const std::string& file, const std::string& folder,
                                      PixelExtent extent = {});

}  // namespace studio
