#pragma once

#include "FileWriting.h"

#include <list>
#include <vector>

namespace CorvexMaterial {

/// Files that belong together, as a model and its library: all of them are on the disk before the
/// first takes its name. Without `Finish`, or once a stop is asked for, everything stays as it was.
class FileSet {
public:
    explicit FileSet(std::stop_token stop = {}) : m_stop(std::move(stop)) {}
    ~FileSet();
    FileSet(const FileSet&) = delete;
    FileSet& operator=(const FileSet&) = delete;

    /// One that takes its name behind those added before. Lives as long as the set.
    [[nodiscard]] FileWriter& Add(const std::string& path);
    /// One that is about to be written at once: if it is new it goes again unless the set is
    /// finished, and so does its folder.
    void WillMake(const std::string& path);
    /// Errors: FileFailed; Failed, when a stop is asked for before the first takes its name.
    void Finish();

    /// Of those added, as they were named.
    [[nodiscard]] const std::vector<std::string>& Paths() const { return m_paths; }

private:
    std::stop_token m_stop;
    std::list<FileWriter> m_files;
    std::vector<std::string> m_paths;
    std::vector<std::string> m_made;  ///< files, then folders
};

}  // namespace CorvexMaterial
