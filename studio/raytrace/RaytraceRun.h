#pragma once

#include "studio/raytrace/RaytraceImages.h"
#include "studio/raytrace/RaytraceScene.h"

#include <QImage>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>

#include <optional>

namespace studio {

/// One picture by the real POV-Ray, made beside the user's work. Its files are gone when this is.
class PovRayRun : public QObject {
    Q_OBJECT

public:
    explicit PovRayRun(QObject* parent = nullptr);
    /// Ends a run that is still going.
    ~PovRayRun() override;

    [[nodiscard]] bool IsRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// The picture has the size of the scene's frame; antialias 0 is off, 1 depth 2, more depth 4.
    /// `Finished` or `Failed` follows, from the event loop. Errors: FileFailed.
    void Start(const QString& program, const RaytraceScene& scene,
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
    void Give(const QString& message);

    std::optional<QTemporaryDir> m_folder;
    QProcess m_process;
    QString m_words;  ///< what POV-Ray has said, of late
    bool m_cancelled = false;
};

/// The line in which POV-Ray says what is wrong; empty when there is none.
[[nodiscard]] QString FaultIn(const QString& messages);

}  // namespace studio
