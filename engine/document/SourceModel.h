#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace studio {

/// How to tell that a file has changed.
struct FileStamp {
    std::string path;  ///< absolute
    std::int64_t bytes = 0;
    std::int64_t modified = 0;  ///< milliseconds since 1970, UTC

    bool operator==(const FileStamp&) const = default;
};

/// As the file is now; without size and time when there is none.
[[nodiscard]] FileStamp StampOf(const std::string& path);

/// What a scene was opened from. Without a path for none.
struct SourceModel : FileStamp {
    /// Files beside it that were read with it.
    std::vector<FileStamp> others = {};

    bool operator==(const SourceModel&) const = default;
};

[[nodiscard]] SourceModel SourceModelAt(const std::string& path,
                                        const std::vector<std::string>& others = {});
/// As its files are now.
[[nodiscard]] SourceModel SourceNow(const SourceModel& source);

enum class SourceState : std::uint8_t { None, Unchanged, Changed, Missing };

/// How the files of a source model compare with what was read from them.
[[nodiscard]] SourceState StateOf(const SourceModel& source);

/// The first of its files that is another now; empty for none.
[[nodiscard]] std::string ChangedFileOf(const SourceModel& source);

}  // namespace studio
