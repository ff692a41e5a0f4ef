#pragma once

#include "MaterialBrush.h"

class QAction;
class QMenu;

namespace CorvexMaterial {
class Material;
}

namespace studio {

class ScenePane;
class WindowMessages;

/// What the menu offers to bring a material from one shape to others: the clipboard, the picker and
/// the brush.
class MaterialCopying : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        WindowMessages& messages;
        ScenePane& scene;
        CorvexMaterial::Material& panel;
        MaterialLink& link;
    };

    explicit MaterialCopying(const Parts& parts);

    void AddTo(QMenu& menu);

private:
    void AddClipboardTo(QMenu& menu);
    void AddToolsTo(QMenu& menu);
    void StartPainting();
    void FollowMode(MaterialBrush::Mode mode);

    Parts m_parts;
    MaterialBrush m_brush;
    QAction* m_pick = nullptr;
    QAction* m_paint = nullptr;
};

}  // namespace studio
