#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <string>
#include <string_view>
#include <vector>

namespace media {

struct LibraryMaterial {
    std::string name;
    CorvexDB::udtMaterial material;
};

/// The shipped materials in the order of the library. Their texture files lie in `Textures` and
/// `Environments` of this folder.
[[nodiscard]] std::vector<LibraryMaterial> ShippedMaterials(const std::string& folder);

}  // namespace media
