#pragma once

#include <QObject>

#include <memory>

class QAction;
class QMenu;

namespace studio {

class ScenePane;
class ShapeHiding;
class StudioShape;
class ViewMenu;

/// What can be done with the selected shapes in the view: in the Edit menu, and in a menu at the
/// pointer.
class ShapeMenu : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        ScenePane& scene;
        ShapeHiding& hiding;
        ViewMenu& views;
    };

    explicit ShapeMenu(const Parts& parts);

    void AddTo(QMenu& edit);

Q_SIGNALS:
    /// The menu at the pointer is about to be shown; whoever has more to offer adds it. The shape
    /// under the pointer is among those selected; null for the background.
    void MenuRequested(const std::shared_ptr<StudioShape>& shape, QMenu& menu);

private:
    enum class Step { Next, Previous };

    QAction* Add(const QString& text, const QKeySequence& key, const QString& tip,
                 void (ShapeMenu::*work)());
    void Hide();
    void Isolate();
    void ShowAll();
    void Lock();
    void UnlockAll();
    void SelectNext() { SelectBeside(Step::Next, Qt::NoModifier); }
    void SelectPrevious() { SelectBeside(Step::Previous, Qt::NoModifier); }
    void SelectBeside(Step step, Qt::KeyboardModifiers modifiers);
    void EnableActions();
    void ShowAt(QPoint position);

    Parts m_parts;
    QAction* m_hide;
    QAction* m_isolate;
    QAction* m_lock;
    QAction* m_showAll;
    QAction* m_unlockAll;
    QAction* m_next;
    QAction* m_previous;
};

}  // namespace studio
