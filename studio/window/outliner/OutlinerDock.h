#pragma once

#include "ShapeChange.h"

#include <QModelIndex>
#include <QObject>
#include <QPoint>

class QDockWidget;
class QMainWindow;
class QMenu;
class QUndoStack;

namespace studio {

class LibraryLinks;
class MaterialLink;
class MaterialNaming;
class Outliner;
class ScenePane;
class ShapeHiding;
class StudioSettings;
class WindowMessages;

/// The dock with the outliner, and what its rows can be asked for.
class OutlinerDock : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioSettings& settings;
        WindowMessages& messages;
        ScenePane& scene;
        ShapeHiding& hiding;
        MaterialLink& link;
        MaterialNaming& naming;
        LibraryLinks& links;
        QUndoStack& history;
        QMainWindow& window;
    };

    explicit OutlinerDock(const Parts& parts);
    ~OutlinerDock() override;

    void AddTo(QMenu& view);

private:
    void Build();
    void Connect();
    void ShowMenu(const QModelIndex& row, QPoint globalPosition);
    void AddMaterialTo(QMenu& menu, const QModelIndex& row, const ShapeList& shapes);
    void AddFlagsTo(QMenu& menu, const ShapeList& shapes);

    Parts m_parts;
    QDockWidget* m_dock;
    Outliner* m_outliner;
};

}  // namespace studio
