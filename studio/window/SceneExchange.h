#pragma once

#include "StudioScene.h"

#include <QObject>

class QMenu;
class QWidget;

namespace studio {

class FileWork;
class MaterialExchange;
class ScenePane;
class StudioHost;
class WindowMessages;

/// Hands the scene, or what is selected of it, to other programs, and shows what became of it.
class SceneExchange : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        WindowMessages& messages;
        ScenePane& scene;
        MaterialExchange& exchange;  ///< shows the report
        FileWork& work;
        QWidget& window;
    };
    enum class What { Scene, Selection };

    explicit SceneExchange(const Parts& parts) : m_parts(parts) {}

    void AddTo(QMenu& menu);
    /// As it is now, in the format that the name's ending tells; the window goes on meanwhile. The
    /// user is told how it ends.
    void Export(What what, const QString& file);

private:
    void Choose(What what);
    /// In the order of the scene.
    [[nodiscard]] StudioScene::Shapes ShapesOf(What what) const;

    Parts m_parts;
};

}  // namespace studio
