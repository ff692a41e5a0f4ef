#pragma once

#include <string>

namespace CorvexMaterial {

/// The library or program that an object or function of this process is in, as the loader names
/// it: perhaps relative to the folder that the program was started in. Empty if it cannot tell.
[[nodiscard]] std::string LoadedFile(const void* part);

}  // namespace CorvexMaterial
