#pragma once

#include "host/MaterialRecord.h"

struct aiMaterial;

namespace studio {

/// The look of a file's material in our own terms. Texture paths are as the file has them, "*0"
/// and so on for a picture inside the file.
[[nodiscard]] CorvexDB::udtMaterial MaterialFrom(const aiMaterial& source);

}  // namespace studio
