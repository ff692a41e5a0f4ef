#pragma once

#include "Selection.h"
#include "ShapeChange.h"
#include "StudioScene.h"

#include <QObject>

#include <functional>

class QUndoStack;

namespace studio {

/// Hides and locks shapes, each time as one step of the undo history; nothing where all are so
/// already. Shapes that are hidden leave the selection, and come back to it when that is undone.
class ShapeHiding : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object.
    ShapeHiding(StudioScene& scene, Selection& selection, QUndoStack& history,
                QObject* parent = nullptr);

    void SetHidden(const ShapeList& shapes, bool hidden);
    void SetLocked(const ShapeList& shapes, bool locked);
    /// Shows these and hides all others.
    void Isolate(const ShapeList& shapes);
    void ShowAll();
    void UnlockAll();

    /// The only one's, or how many there are.
    [[nodiscard]] static QString NameOf(const ShapeList& shapes);

Q_SIGNALS:
    /// Flags of shapes are others: the scene is to be drawn anew.
    void Changed();

private:
    class Step;

    using Edit = std::function<void(const std::shared_ptr<StudioShape>&, ShapeFlags&)>;
    void Change(const ShapeList& shapes, const QString& text, const Edit& edit);

    StudioScene& m_scene;
    Selection& m_selection;
    QUndoStack& m_history;
};

}  // namespace studio
