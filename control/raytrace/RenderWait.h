#pragma once

#include "PreviewTarget.h"
#include <CorvexMaterial/Processes.h>

#include <QPointer>
#include <QWidget>

namespace CorvexMaterial {

class RaytracerAtWork;

/// Waits for a raytracer behind a small window with progress and Cancel.
class RenderWait : public PreviewTarget {
public:
    /// The progress shows over this widget.
    RenderWait(ProcessStarter& processes, QWidget& over);

    std::int32_t ShellWaitUpdatePreview(const CorvexDB::CommandLine& commandLine,
                                        const std::string& outputBitmap, ShellStatus& status,
                                        std::int32_t width, std::int32_t height, bool updatePreview,
                                        std::int32_t options) override;
    std::string Messages() override { return m_messages; }

private:
    /// True when the user cancelled, and it is gone then.
    [[nodiscard]] bool WaitBehindProgress(RaytracerAtWork& work);

    ProcessStarter& m_processes;
    QWidget& m_over;
    std::string m_messages;
};

}  // namespace CorvexMaterial
