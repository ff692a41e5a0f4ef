#pragma once

#include <string>

namespace CorvexMaterial {

/// What a copy that is not complete has behind its name; one that is left over may be removed.
inline constexpr const char* kUnfinishedCopy = ".copying";

/// A copy that is on the disk before it has its name; it shares its blocks with the file where the
/// file system can do that. Errors: FileFailed, naming the copy and the system's
/// reason; nothing is left then.
void CopyFile(const std::string& file, const std::string& copy);

}  // namespace CorvexMaterial
