#pragma once

#include "CameraHistory.h"

#include <QObject>

class QAction;
class QMenu;
class QUndoStack;
class QWidget;

namespace studio {

class ScenePane;
struct NamedView;

/// How the scene is looked at: standard views, projection, the views before and those that the user
/// has named. To name one is a step of the undo history, to look is not.
class ViewMenu : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        ScenePane& scene;
        QUndoStack& history;
        QWidget& window;
    };

    explicit ViewMenu(const Parts& parts);

    void AddTo(QMenu& menu);
    void AddStandardViewsTo(QMenu& menu);
    /// The view that is shown; one that has the name gives way.
    void SaveView(const QString& name);

private:
    void MakeStandardViews();
    void Show(const Camera& camera);
    void SetViews(const std::vector<NamedView>& views, const QString& step);
    void AddNamedViewsTo(QMenu& menu);
    void AskForName();
    void AskForOtherName(const NamedView& view);
    void Remove(const NamedView& view);
    void EnableSteps();
    void ListViews(QMenu& menu);

    Parts m_parts;
    CameraHistory m_visited;
    QAction* m_back;
    QAction* m_forward;
    QAction* m_parallel;
    QList<QAction*> m_standard;
};

}  // namespace studio
