#pragma once

#include <string>

namespace CorvexMaterial {

/// A file whose lock says that what lies beside it belongs to a living process. The system lets go
/// of the lock when the process ends in any way; what is left then may be removed by another.
/// Movable; without a lock after a move.
class OwnerLock {
public:
    /// Makes the file. Not held, with `errno` set, when that fails: EEXIST when the name is taken.
    static OwnerLock Make(const std::string& path);
    /// Of a process that is gone. Not held when a living one has it, and when it is anything but a
    /// file of this user.
    static OwnerLock TakeOver(const std::string& path);

    OwnerLock() = default;
    OwnerLock(OwnerLock&& other) noexcept;
    OwnerLock& operator=(OwnerLock&& other) noexcept;
    /// Removes the file.
    ~OwnerLock();

    [[nodiscard]] bool Held() const { return m_file >= 0; }

private:
    OwnerLock(std::string path, int file) : m_path(std::move(path)), m_file(file) {}

    std::string m_path;
    int m_file = -1;
};

}  // namespace CorvexMaterial
