#pragma once

#include "FrameSource.h"

#include <QObject>
#include <QPointer>

class QButtonGroup;
class QDockWidget;
class QMainWindow;
class QMenu;

namespace studio {

class HostViewport;
class MaterialLink;
class RenderService;
class Selection;
class ViewportWidget;

/// A preview as large as one likes, in a panel that floats or is docked: the object of the
/// material panel, or the selected shapes without the others.
class LargePreview : public QObject, private FrameSource {
    Q_OBJECT

public:
    struct Parts {
        RenderService& rendering;
        MaterialLink& link;
        Selection& selection;
        HostViewport* object;  ///< of the material panel; may be null
        QMainWindow& window;
    };

    /// All of it outlives this object, but for the viewport.
    explicit LargePreview(const Parts& parts);
    ~LargePreview() override;

    void AddTo(QMenu& view);

Q_SIGNALS:
    /// Once, when it is first to be seen.
    void ViewMade(studio::ViewportWidget& view);

private:
    void Build();
    void AddView();
    void Fill(Frame& frame) override;
    void Draw();
    void Show();
    void Reframe();
    [[nodiscard]] bool ShowsShapes() const;

    Parts m_parts;
    QPointer<HostViewport> m_object;
    QDockWidget* m_dock;
    QButtonGroup* m_what;
    ViewportWidget* m_view = nullptr;  ///< made when it is first to be seen
    bool m_isPlaced = false;
};

}  // namespace studio
