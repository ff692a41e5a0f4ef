#pragma once

#include "Frame.h"
#include "Navigation.h"
#include "PointerHold.h"
#include "RenderService.h"
#include "ViewportPicture.h"
#include <CorvexMaterial/Colour.h>

#include <QPoint>
#include <QTimer>
#include <QWidget>

#include <optional>
#include <vector>

namespace studio {

class FrameSource;
class ViewTool;

/// A plain widget that shows the newest picture of its source and moves the camera with the mouse:
/// drags as the preset says (`ActionOfDrag`), round and by what is under the pointer, where the
/// wheel zooms to. What is selected with it is its owner's business.
class ViewportWidget : public QWidget {
    Q_OBJECT

public:
    /// The service outlives the widget.
    explicit ViewportWidget(RenderService& service, QWidget* parent = nullptr);
    ~ViewportWidget() override;

    /// The source outlives the widget or is replaced by null before.
    void SetSource(FrameSource* source);

    /// Asks for a new picture; it is shown a moment later (`pictureShown`). Several calls before
    /// control returns to the event loop cost one picture.
    void Draw();
    /// Shows this image, fitted with its proportions, until the next `Draw`.
    void ShowPicture(const QImage& picture);

    [[nodiscard]] const studio::Camera& Camera() const { return m_camera; }
    void SetCamera(const studio::Camera& camera);
    /// The view that `ResetView` returns to, and that zoom 100 % refers to. Goes there.
    void SetHomeCamera(const studio::Camera& camera);
    void ResetView();

    void SetNavigation(NavigationPreset preset) { m_preset = preset; }
    void SetUse(ViewUse use) { m_use = use; }
    /// The tool outlives the widget or is removed before.
    void AddTool(ViewTool& tool);
    void RemoveTool(ViewTool& tool);

    void SetBackground(CorvexMaterial::Colour colour);

    /// The frame that the next `Draw` would ask for.
    [[nodiscard]] Frame CurrentFrame() const;
    [[nodiscard]] QSize PictureSize() const;  ///< device pixels, at least 1x1
    /// What it shows of the scene; null while it shows something else.
    [[nodiscard]] QImage Picture() const { return m_picture.Drawn(); }
    [[nodiscard]] QString PositionText() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Pressed and released without a drag; widget coordinates (see Camera::RayThrough).
    void clicked(QPoint position, Qt::KeyboardModifiers modifiers);
    void doubleClicked(QPoint position);
    /// A drag around shapes that are to be selected.
    void boxed(QRectF box, Qt::KeyboardModifiers modifiers);
    /// The end of a drag, of a run of wheel steps, or a reset.
    void interactionFinished();
    /// The picture that was asked for last has become the one that is painted.
    void pictureShown();
    void positionText(const QString& text);
    /// No picture could be drawn; the widget shows the text itself too.
    void failed(const QString& message);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void DrawSoon();
    void RequestPicture(int samples);
    void Receive(const RenderResult& result);
    void Settle(int samples);
    void RefineWhenIdle();
    void MoveCamera(const studio::Camera& camera);
    [[nodiscard]] std::optional<QVector3D> SurfaceAt(QPointF position) const;
    [[nodiscard]] QVector3D PointAt(QPointF position) const;
    [[nodiscard]] bool ToolTakes(const QMouseEvent& event);
    void BeginDrag();
    void CancelHold();

    RenderService& m_service;
    RenderService::ViewId m_view;
    FrameSource* m_source = nullptr;
    studio::Camera m_camera;
    studio::Camera m_home;
    CorvexMaterial::Colour m_background = Frame().background;
    ViewportPicture m_picture;
    bool m_wanted = false;  ///< a picture is to be drawn once the widget can be seen
    bool m_drawPosted = false;
    QTimer m_refineSoon;  ///< a view that rests gets smooth edges
    QTimer m_wheelEnd;
    std::uint64_t m_requests = 0;
    NavigationPreset m_preset = NavigationPreset::Studio;
    ViewUse m_use = ViewUse::Look;
    PointerHold m_hold;
    std::vector<ViewTool*> m_tools;  ///< the newest last
};

}  // namespace studio
