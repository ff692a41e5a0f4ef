#pragma once

#include "CommandOutput.h"
#include "SceneCommandLine.h"
#include "SceneReading.h"

namespace studio {

/// What every scene command works with.
struct SceneContext {
    const SceneJob& job;
    CommandOutput& output;

    /// A loss: a problem where the job is strict.
    void Loss(const QString& text);
    /// Each is a problem.
    void LookForDamage(SceneDocument& document);
};

/// Does the job. Whether all of it went well; what did not was printed. Needs an application
/// object.
[[nodiscard]] bool RunSceneJob(const SceneJob& job);

/// Of a scene's files, where the studio has its own.
[[nodiscard]] PictureFolders ScenePictures();

/// The job's scene, with what is lost or missing told.
[[nodiscard]] SceneReading ReadIn(SceneContext& context);
/// The same to be changed; what it misses is told when it is written.
[[nodiscard]] SceneReading ReadToWrite(SceneContext& context);
/// In place or where the job says, unless there was a problem.
void WriteScene(SceneContext& context, SceneReading& scene);

}  // namespace studio
