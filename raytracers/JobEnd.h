#pragma once

#include "Raytracers.h"

#include <cstdint>
#include <optional>
#include <string>

namespace CorvexMaterial {

/// How a raytracer's job came out.
struct JobEnd {
    OutputFacts output;
    bool crashed = false;
    std::int32_t exitCode = 0;
    std::string messages;                              ///< what it printed at its end
    std::optional<CorvexViewport::PixelSize> picture;  ///< none when there is none to be read
    CorvexViewport::PixelSize wanted;
    std::string folder;  ///< where it has written
};

/// Why there is no picture to show, for a person, with the raytracer's own words; empty when there
/// is one.
[[nodiscard]] std::string FailureOf(const JobEnd& end);

/// A sentence when a folder's disk has no room for anything that is worth writing, else empty.
[[nodiscard]] std::string FullDiskText(const std::string& folder);

}  // namespace CorvexMaterial
