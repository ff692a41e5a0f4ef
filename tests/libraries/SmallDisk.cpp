#include "tests/libraries/SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>

namespace LibraryTest {

SmallDisk::SmallDisk(std::string folder) : m_folder(std::move(folder))
{
    m_isThere = ::unshare(CLONE_NEWNS) == 0 &&
                ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                ::mount("none", m_folder.c_str(), "tmpfs", 0, "size=200k") == 0;
}

SmallDisk::~SmallDisk()
{
    if (m_isThere) {
        ::umount2(m_folder.c_str(), MNT_DETACH);
    }
}

}  // namespace LibraryTest
