#pragma once

#include "Frame.h"
#include "FrameSource.h"
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

class ViewTool;

/// A plain widget that shows the newest picture of its source and moves the camera with the mouse:
/// drags as the preset says (`ActionOfDrag`), round and by what is under the pointer, where the
/// wheel zooms to, or with keys (`MovedByKey`). What is selected with it is its owner's business.
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
    /// The same by a wish of the user's: an interaction that has ended.
    void GoTo(const studio::Camera& camera);
    /// The view that `ResetView` returns to, and that zoom 100 % refers to. Goes there, or to
    /// another that is shown of the same.
    void SetHomeCamera(const studio::Camera& home, const std::optional<studio::Camera>& shown = {});
    void ResetView() { GoTo(m_home); }

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
    void boxed(QRectF box, BoxRule rule, Qt::KeyboardModifiers modifiers);
    /// A press of the right button without a drag, or the menu's key.
    void menuRequested(QPoint position);
    /// Esc, where there is nothing to end.
    void escaped();
    /// The end of a drag, of a run of wheel steps or keys, or a reset.
    void interactionFinished();
    /// Something else is looked at now.
    void homeChanged();
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
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void DrawSoon();
    void RequestPicture(int samples);
    void Receive(const RenderResult& result);
    void Settle(int samples);
    void RefineWhenIdle();
    void MoveCamera(const studio::Camera& camera);
    [[nodiscard]] std::optional<SurfacePoint> SurfaceAt(QPointF position) const;
    [[nodiscard]] QVector3D PointAt(QPointF position) const;
    [[nodiscard]] bool ToolTakes(const QMouseEvent& event);
    void PaintOver(QPainter& painter);
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
    QTimer m_motionEnd;   ///< of wheel and keys
    std::uint64_t m_requests = 0;
    NavigationPreset m_preset = NavigationPreset::Studio;
    ViewUse m_use = ViewUse::Look;
    PointerHold m_hold;
    bool m_showsFocus = false;       ///< it came by keyboard
    std::vector<ViewTool*> m_tools;  ///< the newest last
};

}  // namespace studio
