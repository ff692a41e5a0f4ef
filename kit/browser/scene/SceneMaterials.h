#pragma once

#include "SceneLibrary.h"
#include "StudioScene.h"

#include <QObject>
#include <QTimer>

#include <vector>

namespace studio {

class LibraryBrowsers;
class SqliteMaterialLibrary;
class Thumbnailer;

/// Keeps the library of the scene's materials as the scene is while it is shown, and draws its
/// pictures one after another once they are looked at, so that a thousand cost nothing at once.
class SceneMaterials : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object.
    struct Parts {
        StudioScene& scene;
        SqliteMaterialLibrary& library;
        LibraryBrowsers& browsers;
        const Thumbnailer& thumbnails;
        std::function<std::vector<std::string>()> fieldNames;
    };

    SceneMaterials(Parts parts, QObject* parent);
    ~SceneMaterials() override;

    /// Something may have changed.
    void FollowSoon();

private:
    [[nodiscard]] bool IsShown();
    bool Follow();
    [[nodiscard]] QString UsersOf(EntryId id) const;
    void DrawNext();

    Parts m_parts;
    SceneLibrary m_scene;
    QTimer m_followSoon;
    QTimer m_drawSoon;
    std::vector<EntryId> m_wanted;  ///< what was looked at last comes last, and is drawn first
};

/// Of the shapes, in the order in which they come.
[[nodiscard]] std::vector<SceneMaterialUse> MaterialUsesOf(const StudioScene::Shapes& shapes);

}  // namespace studio
