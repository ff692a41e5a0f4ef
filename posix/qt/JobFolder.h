#pragma once

#include <string>

namespace CorvexMaterial {

/// Where the files of a raytracer's job lie: the folder that the variable `temp` names, else the
/// system's. Absolute, so that a path handed out stays good when the working folder changes.
[[nodiscard]] std::string JobFolder();

}  // namespace CorvexMaterial
