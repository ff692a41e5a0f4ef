#pragma once

#include "Report.h"
#include "StudioScene.h"

#include <QString>

namespace studio {

/// What a command works on.
struct SceneInput {
    StudioScene::Shapes shapes;
    Report report;  ///< what reading it lost
    std::size_t materials = 0;
};

/// A model, or a document of the studio. Pictures that are inside go to `Textures/` in the folder.
/// Errors: FileFailed naming file and reason.
[[nodiscard]] SceneInput ReadScene(const QString& file, const QString& pictureFolder);

}  // namespace studio
