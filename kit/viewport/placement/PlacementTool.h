#pragma once

#include "ProjectionDrag.h"
#include "ViewTool.h"
#include <CorvexMaterial/MaterialEdit.h>

#include <QCoreApplication>

#include <functional>

namespace studio {

class ViewportWidget;

/// Handles around a wrapped shape: arrows move its projection, rings turn it, a card of one tile
/// scales and turns the texture. Shift snaps, Esc gives a drag up.
class PlacementTool : public ViewTool {
    Q_DECLARE_TR_FUNCTIONS(PlacementTool)

public:
    using Rows = std::vector<CorvexMaterial::EditedRow>;

    /// What the tool works on.
    struct Work {
        /// The shape whose projection the handles show; none for no handles.
        std::function<std::optional<FrameItem>()> shape;
        /// What would become of it, at every move.
        std::function<void(const Rows&)> tries;
        /// The end of a drag: the last that was tried becomes an edit, or nothing has happened.
        std::function<void(const Rows&)> makes;
        std::function<void()> givesUp;
    };

    /// The view outlives the tool.
    PlacementTool(ViewportWidget& view, Work work);
    ~PlacementTool() override;

    void Show(bool shown);
    [[nodiscard]] bool IsShown() const { return m_isShown; }

    bool MousePress(const QMouseEvent& event) override;
    bool MouseMove(const QMouseEvent& event) override;
    void MouseRelease(const QMouseEvent& event) override;
    void MouseCancel() override;
    void MouseLeave() override;
    void Paint(QPainter& painter) override;

private:
    [[nodiscard]] ViewOfScene View() const;
    [[nodiscard]] std::optional<FrameItem> Shape() const;
    void Hover(std::optional<ProjectionHandle> handle);
    [[nodiscard]] QString ValueText() const;

    ViewportWidget& m_view;
    Work m_work;
    bool m_isShown = false;
    std::optional<ProjectionHandle> m_hovered;
    std::optional<ProjectionDrag> m_drag;
    CorvexDB::udtMaterial m_before;
    CorvexDB::udtMaterial m_now;
    QPointF m_pointer;
};

}  // namespace studio
