#pragma once

#include "host/Export.h"
#include "platform/Files.h"

#include <cstdint>

namespace CorvexMaterial {

/// The number of a file is shared by all files of a job, whatever their extension, so a number is
/// claimed only when no file of any extension has it.
class CORVEX_EXPORT QtTemporaryFiles final : public TemporaryFiles {
public:
    std::string Folder() override;
    std::string Claim(const std::string& extension) override;
    void Write(const std::string& path, const std::string& text) override;
    bool HasContent(const std::string& path) override;
    /// Errors: FileFailed when the file is there and cannot be removed.
    void Remove(const std::string& path) override;

private:
    std::int64_t m_claims = 0;
};

}  // namespace CorvexMaterial
