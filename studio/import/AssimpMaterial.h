#pragma once

#include "host/MaterialRecord.h"

struct aiMaterial;

namespace studio {

/// The look of a file's material in our own terms. The texture path is as the file has it, empty
/// for an embedded one.
[[nodiscard]] CorvexDB::udtMaterial MaterialFrom(const aiMaterial& source);

}  // namespace studio
