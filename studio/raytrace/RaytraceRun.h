#pragma once

#include "host/CorvexDB.h"
#include "platform/ProcessLeash.h"
#include "platform/TemporaryFolder.h"
#include "raytrace/RenderProgress.h"
#include "studio/raytrace/writing/RaytraceImages.h"
#include "studio/raytrace/writing/RaytraceScene.h"

#include <QImage>
#include <QObject>
#include <QProcess>

#include <optional>

namespace studio {

/// A raytracer's program and how it is called.
struct RaytracerProgram {
    QString path;
    CorvexDB::Raytracer kind = CorvexDB::Raytracer::PovRay;
};

/// One picture by a raytracer, made beside the user's work. Its files are gone when this is.
class RaytraceRun : public QObject {
    Q_OBJECT

public:
    explicit RaytraceRun(QObject* parent = nullptr);
    /// Ends a run that is still going.
    ~RaytraceRun() override;

    [[nodiscard]] bool IsRunning() const { return m_process.state() != QProcess::NotRunning; }
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
    void ReadProgress();
    void Conclude();
    [[nodiscard]] QString FilePath(QLatin1String name) const;
    void Give(const QString& message);

    std::optional<CorvexMaterial::TemporaryFolder> m_folder;
    /// Gone when the program has ended or is to end.
    std::optional<CorvexMaterial::ProcessLeash> m_leash;
    QProcess m_process;
    CorvexDB::Raytracer m_kind = CorvexDB::Raytracer::PovRay;
    QSize m_size;                               ///< wanted, in pixels
    CorvexMaterial::RenderProgress m_progress;  ///< what the program has said, of late
    bool m_cancelled = false;
};

}  // namespace studio
