#pragma once

#include "Frame.h"
#include "RenderService.h"
#include "ViewportPicture.h"
#include <CorvexMaterial/Colour.h>

#include <QPoint>
#include <QTimer>
#include <QWidget>

namespace studio {

class FrameSource;

/// A plain widget that shows the newest picture of its source and moves the camera with the mouse:
/// drag turns, middle or shift drag pans, the wheel zooms, a double click resets.
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
    /// The view that a double click returns to, and that zoom 100 % refers to. Goes there.
    void SetHomeCamera(const studio::Camera& camera);
    void ResetView();

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

private:
    enum class Drag { None, Undecided, Turn, Pan };

    void DrawSoon();
    void RequestPicture(int samples);
    void Receive(const RenderResult& result);
    void Settle(int samples);
    void RefineWhenIdle();
    void MoveCamera(const studio::Camera& camera);
    void DragBy(QPointF delta);

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
    Drag m_drag = Drag::None;
    Qt::MouseButton m_button = Qt::NoButton;  ///< that began the drag
    QPointF m_pressed;
    QPointF m_last;
};

}  // namespace studio
