#pragma once

#include "RaytracerAtWork.h"
#include "SceneWriters.h"
#include "TemporaryFolder.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

namespace studio {

/// A raytracer's own program and how its scenes are written.
struct RaytracerProgram {
    QString path;
    const SceneWriter* writer = nullptr;
};

/// One picture by a raytracer, made beside the user's work. Its files are gone when this is, and a
/// run that is still going ends.
class RaytraceRun : public QObject {
    Q_OBJECT

public:
    explicit RaytraceRun(CorvexMaterial::ProcessStarter& processes, QObject* parent = nullptr);

    [[nodiscard]] bool IsRunning() const { return m_work != nullptr; }
    /// The picture has the size of the scene's frame; antialias 0 is off, 1 depth 2, more depth 4
    /// (RenderMan renderers have one way only).
    /// `Finished` or `Failed` follows, from the event loop. Errors: FileFailed.
    void Start(const RaytracerProgram& program, const RaytraceScene& scene,
               const RaytraceImages::Lookup& textures, int antialias);
    /// `Failed` follows with an empty message.
    void Cancel();

Q_SIGNALS:
    void Progress(int percent);
    void Finished(const QImage& picture);
    /// For a person; empty after `Cancel`.
    void Failed(const QString& message);

private:
    void Look();
    void Conclude();

    CorvexMaterial::ProcessStarter& m_processes;
    QTimer m_watch;
    /// Outlives what works in it.
    std::optional<CorvexMaterial::TemporaryFolder> m_folder;
    std::unique_ptr<CorvexMaterial::RaytracerAtWork> m_work;
    CorvexMaterial::RenderTask m_task;
    CorvexMaterial::OutputFacts m_output;
    bool m_cancelled = false;
};

}  // namespace studio
