#pragma once

#include "ShapeChange.h"

#include <QObject>

class QMenu;
class QWidget;

namespace studio {

class MaterialLink;
class ScenePane;
class WindowMessages;

/// Lets the user name the materials of the selected shapes, and say which shapes share one.
class MaterialNaming : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        WindowMessages& messages;
        ScenePane& scene;
        MaterialLink& link;
        QWidget& window;
    };

    explicit MaterialNaming(const Parts& parts) : m_parts(parts) {}

    void AddTo(QMenu& menu);
    /// Of all that share a material with one of the shapes.
    void Rename(const ShapeList& shapes, const QString& name);
    /// The selected shapes share the material that this one wears.
    void ApplyToSelected(const StudioShape& wearer);
    void MakeUnique(const ShapeList& shapes);
    /// Selects all shapes that share a material with one of these.
    void SelectSame(const ShapeList& shapes);

private:
    void AskForName();

    Parts m_parts;
};

}  // namespace studio
