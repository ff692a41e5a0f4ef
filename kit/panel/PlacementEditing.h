#pragma once

#include "MaterialLink.h"
#include "PlacementTool.h"

#include <QAction>

namespace studio {

/// The handles of a texture's placement, in a view: switched by an action or by the panel's button,
/// shown around the shape that was selected last if it has a texture. A drag is an edit of all that
/// are selected.
class PlacementEditing : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object.
    struct Parts {
        ViewportWidget& view;
        CorvexMaterial::Material& material;
        MaterialLink& link;
        Selection& selection;
    };

    PlacementEditing(const Parts& parts, QObject* parent);

    [[nodiscard]] QAction* Action() { return m_action; }

Q_SIGNALS:
    /// The handles were asked for, and there is no shape with a texture to show them on.
    void NothingToPlace();

private:
    [[nodiscard]] std::optional<FrameItem> Shape() const;
    void Switch(bool isOn);

    Parts m_parts;
    PlacementTool m_tool;
    QAction* m_action;
};

}  // namespace studio
