#pragma once

#include "LibraryEntry.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace studio {

struct NamedMaterial {
    std::string name;
    CorvexDB::udtMaterial material;
    EntryDetails details{};
};

/// A material as one JSON object; docs/libraries.md lists the keys. Texture files in the folder or
/// beside it become relative to it (`./Textures/oak.png`), the folder being that of the library.
[[nodiscard]] std::string JsonOfMaterial(const CorvexDB::udtMaterial& material,
                                         const std::string& folder);

struct MaterialReading {
    CorvexDB::udtMaterial material;
    /// What could not be taken over and has its default, for a person.
    std::vector<std::string> problems;
};

/// Unknown keys are ignored. Errors: FileFailed with the bare cause when the text is no JSON
/// object.
[[nodiscard]] MaterialReading MaterialOfJson(std::string_view json, const std::string& folder);

/// Names of the custom fields as the user set them up, element n for field n; may be shorter.
using FieldNames = std::vector<std::string>;

/// What becomes of a material whose custom fields are moved, value n coming from place `from[n]`.
/// Nothing when it has no values, or cannot be read.
using FieldPlaces = std::array<std::size_t, CorvexDB::kCustomFieldCount>;
[[nodiscard]] std::optional<EntryContent>
WithMovedFields(std::string_view json, const FieldPlaces& from, const FieldNames& fieldNames);

/// Ready to be added to the library in this folder.
[[nodiscard]] NewEntry EntryOfMaterial(const NamedMaterial& named, const std::string& folder,
                                       const FieldNames& fieldNames = {});

}  // namespace studio
