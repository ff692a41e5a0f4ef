#pragma once

#include "NamedViews.h"
#include "Selection.h"
#include "StudioScene.h"

#include <QObject>

#include <functional>

class QAction;
class QKeySequence;
class QMainWindow;
class QMenu;

namespace studio {

class StudioHost;
class ViewportWidget;
class WindowMessages;

/// The scene in the middle of the window: its viewport, what is selected in it, how it is looked
/// at.
class ScenePane : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object. The viewport becomes the window's central widget.
    ScenePane(StudioHost& host, WindowMessages& messages, QMainWindow& window);
    ~ScenePane() override;

    [[nodiscard]] StudioScene& Scene() { return m_scene; }
    [[nodiscard]] Selection& Selected() { return m_selection; }
    [[nodiscard]] ViewportWidget& Viewport() { return *m_viewport; }

    /// Nothing is selected then.
    void Show(StudioScene::Shapes shapes);
    /// Null where there is none.
    [[nodiscard]] std::shared_ptr<StudioShape> ShapeAt(QPoint position) const;

    /// Brings them into view.
    void FrameShapes(StudioScene::Shapes shapes);
    void AddSelectionTo(QMenu& menu);
    void AddFramingTo(QMenu& menu);
    [[nodiscard]] NamedViews& Views() { return m_views; }
    /// Enabled as long as a shape is selected.
    void EnableWithSelection(QAction* action);

    /// Of the settings, for the panel's preview too.
    void ApplyNavigation();

    /// On the status line: what is selected and what it wears.
    void TellSelection();

Q_SIGNALS:
    /// The scene has other shapes now.
    void ShapesReplaced();

private:
    void Connect();
    void MakeActions();
    QAction* MakeAction(const QString& text, const QKeySequence& key, const QString& tip,
                        const std::function<void()>& work);
    /// In the view alone.
    void AddKey(Qt::Key key, const std::function<void()>& work);
    void FrameSelection();
    void FrameAll();
    /// Its name and how many shapes share it; empty for a material without a name.
    [[nodiscard]] QString SelectionText() const;
    [[nodiscard]] QString MaterialText(const std::shared_ptr<StudioShape>& shape) const;

    StudioHost& m_host;
    WindowMessages& m_messages;
    StudioScene m_scene;
    Selection m_selection;
    NamedViews m_views;
    ViewportWidget* m_viewport;
    QAction* m_selectAll;
    QAction* m_clear;
    QAction* m_frameSelection;
    QAction* m_frameAll;
};

}  // namespace studio
