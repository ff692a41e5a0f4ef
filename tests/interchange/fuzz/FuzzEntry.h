#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

/// Takes any bytes: a file that is refused is fine. Ends the process when what comes of it is no
/// usable material.
using FuzzEntry = void (*)(std::span<const std::byte> bytes);

void FuzzMtl(std::span<const std::byte> bytes);
void FuzzMtlx(std::span<const std::byte> bytes);
/// What the process that reads glTF files hands back.
void FuzzAnswer(std::span<const std::byte> bytes);

struct FuzzTarget {
    std::string_view name;  ///< an extension of the sample files too
    FuzzEntry entry;
};
inline constexpr std::array kFuzzTargets{FuzzTarget{"mtl", FuzzMtl}, FuzzTarget{"mtlx", FuzzMtlx},
                                         FuzzTarget{"answer", FuzzAnswer}};
