#pragma once

#include "Selection.h"
#include "StudioScene.h"

#include <QObject>

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
    /// Enabled as long as a shape is selected.
    void EnableWithSelection(QAction* action);

    /// On the status line: what is selected and what it wears.
    void TellSelection();

Q_SIGNALS:
    /// The scene has other shapes now.
    void ShapesReplaced();

private:
    /// Its name and how many shapes share it; empty for a material without a name.
    [[nodiscard]] QString SelectionText() const;
    [[nodiscard]] QString MaterialText(const std::shared_ptr<StudioShape>& shape) const;
    WindowMessages& m_messages;
    StudioScene m_scene;
    Selection m_selection;
    ViewportWidget* m_viewport;
};

}  // namespace studio
