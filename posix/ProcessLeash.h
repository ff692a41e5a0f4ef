#pragma once

#include <sys/types.h>

namespace CorvexMaterial {

/// Keeps a program that is about to be started from outliving its starter: the program gets a
/// process group of its own, with all that it starts in turn, and when this object goes, or the
/// process that holds it is killed, what is left of the group is asked to end (SIGTERM) and, three
/// seconds later, killed. A small watcher, no child of the program, sees to that; a death signal of
/// the system would reach one process of the group only.
class ProcessLeash {
public:
    /// Errors: std::system_error.
    ProcessLeash();
    ~ProcessLeash();
    ProcessLeash(const ProcessLeash&) = delete;
    ProcessLeash& operator=(const ProcessLeash&) = delete;

    /// To be called by the program's own process, between fork and exec.
    void HoldThisProcess() const noexcept;

private:
    int m_watched = -1;  ///< the watcher's end of a pipe
    int m_held = -1;     ///< ours; it closes when this process ends in any way
};

}  // namespace CorvexMaterial
