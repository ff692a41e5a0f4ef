#pragma once

#include "MaterialText.h"
#include "Report.h"

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
void FuzzGltf(std::span<const std::byte> bytes);
void FuzzObj(std::span<const std::byte> bytes);
/// What the process that reads models hands back.
void FuzzAnswer(std::span<const std::byte> bytes);

struct FuzzTarget {
    std::string_view name;  ///< an extension of the sample files too
    FuzzEntry entry;
};
inline constexpr std::array kFuzzTargets{FuzzTarget{"mtl", FuzzMtl}, FuzzTarget{"mtlx", FuzzMtlx},
                                         FuzzTarget{"gltf", FuzzGltf}, FuzzTarget{"obj", FuzzObj},
                                         FuzzTarget{"answer", FuzzAnswer}};
