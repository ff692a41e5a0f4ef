#pragma once

#include "studio/interchange/Report.h"
#include "studio/libraries/MaterialText.h"

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

/// Takes any bytes: a file that is refused is fine. Ends the process when what comes of it is no
/// usable material.
using FuzzEntry = void (*)(std::span<const std::byte> bytes);

using FuzzReading = std::function<std::vector<studio::NamedMaterial>(studio::Report&)>;
/// Reads and looks at what came of it.
void FuzzWith(const FuzzReading& read);

void FuzzMtl(std::span<const std::byte> bytes);
void FuzzMtlx(std::span<const std::byte> bytes);
/// A glTF file's material as the model importer hands it on; the importer itself runs in a process
/// that may crash.
void FuzzGltf(std::span<const std::byte> bytes);
/// What that process hands back.
void FuzzAnswer(std::span<const std::byte> bytes);

struct FuzzTarget {
    std::string_view name;  ///< an extension of the sample files too
    FuzzEntry entry;
};
inline constexpr std::array kFuzzTargets{FuzzTarget{"mtl", FuzzMtl}, FuzzTarget{"mtlx", FuzzMtlx},
                                         FuzzTarget{"gltf", FuzzGltf},
                                         FuzzTarget{"answer", FuzzAnswer}};
