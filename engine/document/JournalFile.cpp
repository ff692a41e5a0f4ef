#include "JournalFile.h"

#include "FileWriting.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>

namespace studio {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = std::size_t{8} << 20;

std::string NewName(const std::string& folder)
{
    static std::atomic<int> number = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now).count();
    return folder + '/' + std::to_string(seconds) + '-' +
           std::to_string(QCoreApplication::applicationPid()) + '-' + std::to_string(++number);
}

}  // namespace

void JournalFile::Append(const std::string& text)
{
    m_file->Append(text);
    m_size += text.size();
}

void JournalFile::Replace(const std::string& text)
{
    // Somebody may have cleared the folder away.
    std::error_code ignored;
    if (!m_lock.Held() || !fs::exists(m_name + kJournalLockSuffix, ignored)) {
        TakeName();
    }
    m_file.reset();
    const std::string file = m_name + kJournalSuffix;
    CorvexMaterial::WriteFile(file, text);
    m_file = std::make_unique<CorvexMaterial::AppendedFile>(file);
    m_size = text.size();
    m_most = std::max(kLargestFile, 2 * m_size);
}

void JournalFile::TakeName()
{
    CorvexMaterial::MakeFolder(m_folder);
    std::error_code ignored;
    fs::permissions(m_folder, fs::perms::owner_all, ignored);
    for (int reason = EEXIST; reason == EEXIST; reason = errno) {
        m_name = NewName(m_folder);
        m_lock = CorvexMaterial::OwnerLock::Make(m_name + kJournalLockSuffix);
        if (m_lock.Held()) {
            return;
        }
    }
    throw CorvexMaterial::Error(
        CorvexMaterial::Status::FileFailed,
        m_folder + " cannot be written: " + std::generic_category().message(errno));
}

void JournalFile::PutPicture(std::span<const char> png)
{
    CorvexMaterial::WriteFile(m_name + kJournalPictureSuffix, png,
                              CorvexMaterial::Lifetime::Temporary);
}

void JournalFile::Remove()
{
    m_file.reset();
    if (m_lock.Held()) {
        std::error_code ignored;
        for (const char* suffix : {kJournalPictureSuffix, kJournalSuffix}) {
            fs::remove(m_name + suffix, ignored);
        }
    }
    const CorvexMaterial::OwnerLock removed = std::move(m_lock);
}

}  // namespace studio
