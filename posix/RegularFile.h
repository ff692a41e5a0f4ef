#pragma once

#include <cstdint>
#include <string>

namespace CorvexMaterial {

/// A file of a user, or one that a foreign file names, opened for reading; or why it was not. Never
/// waits: a pipe or a device, which might have no end either, is refused unopened.
class RegularFile {
public:
    /// `mostBytes` is told when the file has more.
    RegularFile(const std::string& path, std::int64_t mostBytes);
    ~RegularFile();
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;

    /// For a person: a sentence without its first capital and full stop. Empty when it is open.
    [[nodiscard]] const std::string& Obstacle() const { return m_obstacle; }
    [[nodiscard]] bool IsMissing() const { return m_isMissing; }
    [[nodiscard]] std::int64_t Size() const { return m_size; }
    /// All of it, if it is open; what is there if it has become shorter.
    [[nodiscard]] std::string Content() const;
    /// The descriptor, from now on the caller's to close; -1 when there is an obstacle.
    [[nodiscard]] int Release();

private:
    void Open(const char* path, std::int64_t mostBytes);

    int m_descriptor = -1;
    std::int64_t m_size = 0;
    bool m_isMissing = false;
    std::string m_obstacle;
};

/// As `Obstacle` tells of a file that is longer.
[[nodiscard]] std::string TooLongText(std::int64_t mostBytes);

}  // namespace CorvexMaterial
