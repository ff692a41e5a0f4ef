#pragma once

#include "OwnerLock.h"

#include <string>

namespace CorvexMaterial {

/// The system's folder for temporary files: TMPDIR when that is absolute, else /tmp.
[[nodiscard]] std::string SystemTemporaryFolder();

/// A new folder that only this user can enter, `corvex-PURPOSE-XXXXXX`; gone with this object.
class TemporaryFolder {
public:
    /// The purpose has small letters only. Errors: FileFailed, naming the folder it should be in.
    explicit TemporaryFolder(const std::string& purpose,
                             const std::string& in = SystemTemporaryFolder());
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& Path() const { return m_path; }
    [[nodiscard]] std::string FilePath(const std::string& name) const
    {
        return m_path + '/' + name;
    }

private:
    std::string m_path;
    OwnerLock m_owner;
};

/// Removes such folders there that processes left which were killed. Nothing of a living process,
/// of another user or of another name, and nothing that a link leads to.
void SweepTemporaryFolders(const std::string& in) noexcept;

}  // namespace CorvexMaterial
