#include "FolderUse.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace CorvexMaterial {

FolderUse::FolderUse(const std::string& folder)
    : m_folder(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    ::flock(m_folder, LOCK_SH | LOCK_NB);
}

FolderUse::~FolderUse()
{
    if (m_folder >= 0) {
        ::close(m_folder);
    }
}

void FolderUse::WhileAlone(const std::function<void()>& work) const
{
    // The lock cannot become this process's own while another holds it.
    if (::flock(m_folder, LOCK_EX | LOCK_NB) == 0) {
        work();
    }
    ::flock(m_folder, LOCK_SH | LOCK_NB);
}

}  // namespace CorvexMaterial
