#pragma once

#include <cstddef>
#include <span>

namespace studio {
struct OwnFormat;
}

/// Decodes any bytes; a file that is refused is fine. Ends the process when the decoder breaks its
/// promises.
void FuzzDecoder(const studio::OwnFormat& format, std::span<const std::byte> file);
