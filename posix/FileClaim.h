#pragma once

#include <string>

namespace CorvexMaterial {

/// That this process works on a file of the user, for others that ask likewise. The system lets go
/// of it when the process ends in any way, and nothing is left beside the file. Movable.
class FileClaim {
public:
    FileClaim() = default;
    /// Not held when another process, or this one, holds a claim on the file. Where the file system
    /// knows none, it is held.
    explicit FileClaim(const std::string& path);
    FileClaim(FileClaim&& other) noexcept;
    FileClaim& operator=(FileClaim&& other) noexcept;
    ~FileClaim();

    [[nodiscard]] bool Held() const { return m_held; }

private:
    int m_file = -1;
    bool m_held = false;
};

/// Which file has the name now: another one, or another content of another time, has another text.
/// Empty when there is none.
[[nodiscard]] std::string FileIdentity(const std::string& path);

/// Whether the owner of one file may write to the other; true where one is missing.
[[nodiscard]] bool OwnerMayWrite(const std::string& owned, const std::string& file);

/// The file is on the disk, then takes the place of one that has the name, with that one's
/// permissions. Errors: FileFailed, naming the target; both are as they were then.
void MoveInPlace(const std::string& file, const std::string& target);

}  // namespace CorvexMaterial
