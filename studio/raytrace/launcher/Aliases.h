#pragma once

#include <string>
#include <utility>
#include <vector>

namespace launcher {

/// Stand-ins for paths that POV-Ray cannot take: it drops letters that are not ASCII and cuts a
/// path at a quote. They are names of our own in the working folder, and gone when this is.
class Aliases {
public:
    /// The prefix makes the names unique in the working folder.
    explicit Aliases(std::string prefix) : m_prefix(std::move(prefix)) {}
    ~Aliases();
    Aliases(const Aliases&) = delete;
    Aliases& operator=(const Aliases&) = delete;

    /// Something POV-Ray can read in place of this file or folder; the path itself where it can
    /// read that. Errors: std::system_error.
    [[nodiscard]] std::string ForReading(const std::string& path);
    /// The same for a file that is to be written; `Deliver` puts it where it belongs.
    [[nodiscard]] std::string ForWriting(const std::string& path);
    /// Errors: std::system_error.
    void Deliver();

private:
    [[nodiscard]] std::string NextName(const std::string& path);

    std::string m_prefix;
    std::vector<std::string> m_links;
    std::vector<std::pair<std::string, std::string>> m_written;  ///< alias, wanted
};

/// Whether POV-Ray takes this path as it is.
[[nodiscard]] bool IsPlain(const std::string& path);

}  // namespace launcher
