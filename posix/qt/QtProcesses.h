#pragma once

#include <CorvexMaterial/Processes.h>

namespace CorvexMaterial {

/// Its processes let windows repaint while they are waited for; keys and clicks stay in the queue.
class QtProcessStarter final : public ProcessStarter {
public:
    std::unique_ptr<Process> Start(const ProcessRequest& request) override;
};

}  // namespace CorvexMaterial
