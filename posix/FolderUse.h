#pragma once

#include <functional>
#include <string>

namespace CorvexMaterial {

/// Tells other processes that this one uses a folder, for as long as it lives.
class FolderUse {
public:
    /// Of a folder that is not there nothing is told.
    explicit FolderUse(const std::string& folder);
    ~FolderUse();
    FolderUse(const FolderUse&) = delete;
    FolderUse& operator=(const FolderUse&) = delete;

    /// Does the work unless another process uses the folder; nobody else begins to meanwhile.
    void WhileAlone(const std::function<void()>& work) const;

private:
    int m_folder;
};

}  // namespace CorvexMaterial
