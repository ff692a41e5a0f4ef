#include "FileSet.h"

#include <filesystem>

namespace CorvexMaterial {

namespace fs = std::filesystem;

FileSet::~FileSet()
{
    m_files.clear();
    for (const std::string& made : m_made) {
        std::error_code gone;  // a folder that others use meanwhile stays
        fs::remove(made, gone);
    }
}

FileWriter& FileSet::Add(const std::string& path)
{
    m_paths.push_back(path);
    return m_files.emplace_back(path, Lifetime::Lasting, Existing::Replaced, m_stop);
}

void FileSet::WillMake(const std::string& path)
{
    std::error_code unknown;
    const fs::path folder = fs::path(path).parent_path();
    if (!fs::exists(folder, unknown)) {
        m_made.push_back(folder.string());
    }
    if (!fs::exists(path, unknown)) {
        m_made.insert(m_made.begin(), path);
    }
}

void FileSet::Finish()
{
    for (FileWriter& file : m_files) {
        file.Sync();
    }
    ThrowIfStopped(m_stop);
    m_made.clear();
    for (FileWriter& file : m_files) {
        file.Finish();
    }
}

}  // namespace CorvexMaterial
