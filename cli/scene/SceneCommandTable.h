#pragma once

#include <array>

namespace studio {

struct SceneContext;

/// The commands; each may throw, and says through the context what else went wrong.
void ShowScene(SceneContext& context);
void ValidateScene(SceneContext& context);
void CreateScene(SceneContext& context);
void SetInScene(SceneContext& context);
void ApplyLibraryToScene(SceneContext& context);
void ReloadScene(SceneContext& context);

struct SceneCommandRow {
    const char* name;
    int leastOperands;  ///< after the file
    int mostOperands;
    bool choosesShapes;
    bool writes;  ///< into the file, or where --out says
    void (*run)(SceneContext&);
};

inline constexpr std::array kSceneCommands{
    SceneCommandRow{"show", 0, 0, false, false, ShowScene},
    SceneCommandRow{"validate", 0, 0, false, false, ValidateScene},
    SceneCommandRow{"create", 0, 0, false, true, CreateScene},
    SceneCommandRow{"set", 1, 1000, true, true, SetInScene},
    SceneCommandRow{"apply-library", 2, 2, true, true, ApplyLibraryToScene},
    SceneCommandRow{"reload", 0, 0, false, true, ReloadScene},
};

}  // namespace studio
