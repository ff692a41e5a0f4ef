#pragma once

#include <QString>

#include <string_view>

namespace studio {

/// POV-Ray's word for the type of an image file that it reads as we do; empty for any other. It
/// ends at a JPEG of four colours or without its end, and takes a transparent colour of a PNG for
/// black or ends there.
[[nodiscard]] std::string_view PovRayTypeOf(const QString& file);

}  // namespace studio
