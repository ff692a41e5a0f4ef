#pragma once

#include "Testing.h"
#include <sys/resource.h>

namespace CorvexTest {

/// While it lives, no file of this process can grow beyond the size: a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t most = 0) : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{most, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        static_cast<void>(std::signal(SIGXFSZ, m_signal));
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
    void (*m_signal)(int);
};

}  // namespace CorvexTest
