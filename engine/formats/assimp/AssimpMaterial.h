#pragma once

#include "Report.h"

#include <CorvexMaterial/MaterialRecord.h>

struct aiMaterial;

namespace studio {

/// The look of a file's material in our own terms. Texture paths are as the file has them, "*0"
/// and so on for a picture inside the file, and noted by whoever finds them.
[[nodiscard]] CorvexDB::udtMaterial MaterialFrom(const aiMaterial& source, MaterialNotes& notes);

/// Whether the colours of the file are light.
[[nodiscard]] bool HasPhysicalLook(const aiMaterial& source);

}  // namespace studio
