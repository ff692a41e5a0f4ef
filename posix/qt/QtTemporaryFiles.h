#pragma once

#include "OwnerLock.h"
#include <CorvexMaterial/Files.h>

#include <cstdint>
#include <map>

namespace CorvexMaterial {

/// The number of a file is shared by all files of a job, whatever their extension, so a number is
/// claimed only when no file of any extension has it. As long as there are files of a number, a
/// lock beside them, `~CVX<n>.lock`, tells other processes that they belong to a living one; what
/// was left by killed ones is removed at the beginning.
class QtTemporaryFiles final : public TemporaryFiles {
public:
    QtTemporaryFiles();
    std::string Folder() override;
    std::string Claim(const std::string& extension) override;
    void Write(const std::string& path, const std::string& text) override;
    bool HasContent(const std::string& path) override;
    /// Errors: FileFailed when the file is there and cannot be removed.
    void Remove(const std::string& path) override;

private:
    void ReleaseUnused();

    std::int64_t m_claims = 0;
    std::map<std::string, OwnerLock> m_owned;  ///< by path without extension
};

}  // namespace CorvexMaterial
