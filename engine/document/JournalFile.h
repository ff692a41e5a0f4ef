#pragma once

#include "AppendedFile.h"
#include "OwnerLock.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>

namespace studio {

inline constexpr const char* kJournalSuffix = ".edits";
inline constexpr const char* kJournalLockSuffix = ".lock";
inline constexpr const char* kJournalPictureSuffix = ".png";

/// The files of one journal: lines of text, a picture, and a lock that tells others that they have
/// an owner. Errors: FileFailed.
class JournalFile {
public:
    /// The folder is made when it is needed.
    explicit JournalFile(std::string folder) : m_folder(std::move(folder)) {}

    [[nodiscard]] bool IsThere() const { return m_file != nullptr; }
    /// Whether it should be replaced by what is still true, because of its size.
    [[nodiscard]] bool IsLarge() const { return m_size > m_most; }
    void Append(const std::string& text);
    /// In place of what is there, which stays until the text is on the disk.
    void Replace(const std::string& text);
    void PutPicture(std::span<const char> png);
    void Remove();

private:
    void TakeName();

    std::string m_folder;
    std::string m_name;  ///< of the files, without their suffix
    CorvexMaterial::OwnerLock m_lock;
    std::unique_ptr<CorvexMaterial::AppendedFile> m_file;
    std::size_t m_size = 0;
    std::size_t m_most = 0;
};

}  // namespace studio
