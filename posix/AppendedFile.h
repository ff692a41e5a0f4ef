#pragma once

#include <span>
#include <string>

namespace CorvexMaterial {

/// A file that grows at its end, each piece whole or not at all as long as the process lives; of
/// one that is killed the last piece may be there in part. Errors: FileFailed, naming the path and
/// the system's reason.
class AppendedFile {
public:
    /// Of a file that is there.
    explicit AppendedFile(const std::string& path);
    ~AppendedFile();
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;

    /// On the disk when it returns.
    void Append(std::span<const char> bytes);

private:
    std::string m_path;
    int m_file;
};

/// Why a file is none that this user made: a link, a pipe, another user's; empty when it is.
[[nodiscard]] std::string StrangerCause(const std::string& path);

}  // namespace CorvexMaterial
