#pragma once

#include "studio/interchange/Report.h"

#include "host/MaterialRecord.h"

struct aiMaterial;

namespace studio {

/// What a report calls the primary texture.
inline constexpr const char* kBaseImage = "baseColorTexture";

/// The name of the image that colours the surface, as the file has it; of one inside the file "*0",
/// "*1" and so on.
[[nodiscard]] std::string BaseImageOf(const aiMaterial& source);

/// One material of a glTF file, image files looked for from the folder. An image inside the file
/// has its place, but is neither taken nor noted. Any content will do.
[[nodiscard]] CorvexDB::udtMaterial MaterialOfGltf(const aiMaterial& source,
                                                   const std::string& folder, MaterialNotes notes);

}  // namespace studio
