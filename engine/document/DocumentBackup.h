#pragma once

#include <string>

namespace studio {

inline constexpr int kBackupsKept = 5;
inline constexpr int kMostBackups = 100;

[[nodiscard]] std::string BackupFolder(const std::string& stateFolder);

/// Copies a document as it is on the disk, named after it and the time, and removes the oldest
/// copies of it beyond the number. Nothing happens where there is no file, or none is to be kept.
/// Errors: FileFailed.
void BackUpDocument(const std::string& path, const std::string& stateFolder, int kept);

}  // namespace studio
