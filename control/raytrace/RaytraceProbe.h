#pragma once

#include "PreparedJob.h"
#include "RaytracerAtWork.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace CorvexMaterial {

/// Has a raytracer render a picture that nobody waits for: one at a time, without a word about it.
class RaytraceProbe : public QObject {
    Q_OBJECT

public:
    RaytraceProbe(ProcessStarter& processes, CorvexDB::Diagnostics& diagnostics);
    /// Waits until its program has ended, which it asks it to.
    ~RaytraceProbe() override = default;

    /// Errors: FileFailed when the program cannot be started.
    void Start(std::unique_ptr<PreparedJob> job);
    [[nodiscard]] bool GoesOn() const { return m_work.has_value(); }
    /// Ends it and waits until it has ended; windows are repainted meanwhile.
    void End();

Q_SIGNALS:
    /// The file goes after this. Empty when there is none.
    void Rendered(const std::string& bitmap);

private:
    void Look();

    ProcessStarter& m_processes;
    CorvexDB::Diagnostics& m_diagnostics;
    QTimer m_look;
    // The program ends before its files go.
    std::unique_ptr<PreparedJob> m_job;
    std::optional<RaytracerAtWork> m_work;
};

}  // namespace CorvexMaterial
