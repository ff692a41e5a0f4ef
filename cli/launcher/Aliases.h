#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace launcher {

/// Stand-ins in the current folder, which is ours alone, for paths of others. POV-Ray drops letters
/// that are not ASCII and cuts a path at a quote; and a picture is made here first, so that POV-Ray
/// never writes through a link that somebody has put in its place.
class Aliases {
public:
    /// Relative paths start at this folder.
    explicit Aliases(std::filesystem::path base) : m_base(std::move(base)) {}

    /// Something POV-Ray can read in place of this file or folder; the whole path itself where it
    /// can read that. Errors: std::system_error.
    [[nodiscard]] std::string ForReading(const std::string& path);
    /// The same for a file that is to be written; `Deliver` puts it where it belongs.
    [[nodiscard]] std::string ForWriting(const std::string& path);
    /// Errors: std::system_error.
    void Deliver();

private:
    [[nodiscard]] std::string NextName(const std::string& path);

    std::filesystem::path m_base;
    int m_names = 0;
    std::vector<std::pair<std::string, std::filesystem::path>> m_written;  ///< alias, wanted
};

/// Whether POV-Ray takes this path as it is.
[[nodiscard]] bool IsPlain(const std::string& path);

}  // namespace launcher
