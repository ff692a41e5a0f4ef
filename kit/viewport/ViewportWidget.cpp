#include "ViewportWidget.h"

#include "Backdrop.h"
#include "FrameSource.h"
#include "OrbitMotion.h"
#include "TextureCache.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <utility>

namespace studio {
namespace {

constexpr int kRefineDelayMs = 150;
constexpr int kWheelEndMs = 250;
constexpr float kWheelUnitsPerStep = 120.0F;

}  // namespace

ViewportWidget::ViewportWidget(RenderService& service, QWidget* parent)
    : QWidget(parent), m_service(service), m_view(service.AddView())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Keys pressed after a click here must not go to what had the focus before.
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(32, 32);
    for (QTimer* timer : {&m_refineSoon, &m_wheelEnd}) {
        timer->setSingleShot(true);
    }
    m_refineSoon.setInterval(kRefineDelayMs);
    m_wheelEnd.setInterval(kWheelEndMs);
    connect(&m_refineSoon, &QTimer::timeout, this, [this] { RequestPicture(4); });
    connect(&m_wheelEnd, &QTimer::timeout, this, &ViewportWidget::interactionFinished);
    connect(&service.Textures(), &TextureCache::textureReady, this, [this] {
        if (!m_picture.IsImage()) {
            Draw();
        }
    });
}

ViewportWidget::~ViewportWidget()
{
    m_service.RemoveView(m_view);
}

void ViewportWidget::SetSource(FrameSource* source)
{
    m_source = source;
    Draw();
}

void ViewportWidget::Draw()
{
    m_wanted = true;
    m_refineSoon.stop();
    DrawSoon();
}

void ViewportWidget::DrawSoon()
{
    // Posted: a timer would come after the widgets are painted, and the drawing thread wait for
    // that.
    if (!std::exchange(m_drawPosted, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                m_drawPosted = false;
                if (m_wanted && isVisible()) {
                    RequestPicture(1);
                }
            },
            Qt::QueuedConnection);
    }
}

void ViewportWidget::ShowPicture(const QImage& picture)
{
    m_wanted = false;
    m_refineSoon.stop();
    m_service.Cancel(m_view);
    m_picture.ShowImage(picture);
    update();
}

void ViewportWidget::SetCamera(const studio::Camera& camera)
{
    if (camera != m_camera) {
        MoveCamera(camera);
    }
}

void ViewportWidget::SetHomeCamera(const studio::Camera& camera)
{
    m_home = camera;
    MoveCamera(camera);
}

void ViewportWidget::ResetView()
{
    MoveCamera(m_home);
    Q_EMIT interactionFinished();
}

void ViewportWidget::SetBackground(CorvexMaterial::Colour colour)
{
    m_background = colour;
    Draw();
}

Frame ViewportWidget::CurrentFrame() const
{
    Frame frame;
    const QSize size = PictureSize();
    frame.width = size.width();
    frame.height = size.height();
    frame.camera = m_camera;
    frame.background = m_background;
    frame.outlinePixels *= static_cast<float>(devicePixelRatioF());
    if (m_source != nullptr) {
        m_source->Fill(frame);
    }
    return frame;
}

QSize ViewportWidget::PictureSize() const
{
    return (QSizeF(size()) * devicePixelRatioF()).toSize().expandedTo({1, 1});
}

QString ViewportWidget::PositionText() const
{
    return tr("Yaw %1°  Pitch %2°  Zoom %3 %")
        .arg(std::lround(m_camera.yawDegrees))
        .arg(std::lround(m_camera.pitchDegrees))
        .arg(std::lround(100.0F * m_home.distance / m_camera.distance));
}

QSize ViewportWidget::sizeHint() const
{
    return {256, 256};
}

void ViewportWidget::RequestPicture(int samples)
{
    Frame frame = CurrentFrame();
    frame.samples = samples;
    m_wanted = false;
    const std::uint64_t request = ++m_requests;
    m_service.Request(
        m_view, std::move(frame), [this, samples, request](const RenderResult& result) {
            Receive(result);
            if (result.status == CorvexMaterial::Status::Success && request == m_requests) {
                Settle(samples);
            }
        });
}

void ViewportWidget::Receive(const RenderResult& result)
{
    if (result.status != CorvexMaterial::Status::Success) {
        const QString message = QString::fromStdString(result.error);
        m_picture.ShowMessage(message);
        update();
        Q_EMIT failed(message);
        return;
    }
    m_picture.ShowDrawn(result.image);
    update();
}

void ViewportWidget::Settle(int samples)
{
    if (samples == 1) {
        RefineWhenIdle();
    }
    Q_EMIT pictureShown();
}

void ViewportWidget::RefineWhenIdle()
{
    // A refined picture takes about four times as long, which a moving view must not wait for.
    if (!m_wanted && m_drag != Drag::Turn && m_drag != Drag::Pan) {
        m_refineSoon.start();
    }
}

void ViewportWidget::MoveCamera(const studio::Camera& camera)
{
    m_camera = camera;
    Draw();
    Q_EMIT positionText(PositionText());
}

void ViewportWidget::DragBy(QPointF delta)
{
    MoveCamera(m_drag == Drag::Pan ? Panned(m_camera, delta, QSizeF(size()))
                                   : Turned(m_camera, delta));
}

void ViewportWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_picture.Paint(painter, rect(), BackdropColoursOf(m_background, Frame().backdrop));
}

void ViewportWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (!m_picture.IsImage()) {
        Draw();
    }
}

void ViewportWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    DrawSoon();
}

void ViewportWidget::mousePressEvent(QMouseEvent* event)
{
    if (m_drag != Drag::None && event->buttons().testFlag(m_button)) {
        return;  // a second button does not change what the first one began
    }
    m_button = event->button();
    m_drag = Drag::None;
    m_pressed = m_last = event->position();
    if (event->button() == Qt::MiddleButton) {
        m_drag = Drag::Pan;
        setCursor(Qt::SizeAllCursor);
    } else if (event->button() == Qt::LeftButton) {
        m_drag = Drag::Undecided;
    }
}

void ViewportWidget::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF position = event->position();
    if (m_drag == Drag::Undecided &&
        (position - m_pressed).manhattanLength() >= QApplication::startDragDistance()) {
        const bool pan = event->modifiers().testFlag(Qt::ShiftModifier);
        m_drag = pan ? Drag::Pan : Drag::Turn;
        setCursor(pan ? Qt::SizeAllCursor : Qt::ClosedHandCursor);
    }
    if (m_drag == Drag::Turn || m_drag == Drag::Pan) {
        DragBy(position - m_last);
        m_last = position;
    }
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_button) {
        return;
    }
    const Drag drag = std::exchange(m_drag, Drag::None);
    unsetCursor();
    if (drag == Drag::Undecided) {
        Q_EMIT clicked(event->position().toPoint(), event->modifiers());
    } else if (drag != Drag::None) {
        RefineWhenIdle();
        Q_EMIT interactionFinished();
    }
}

void ViewportWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        ResetView();
    }
}

void ViewportWidget::wheelEvent(QWheelEvent* event)
{
    const auto steps = static_cast<float>(event->angleDelta().y()) / kWheelUnitsPerStep;
    if (steps == 0.0F) {
        return;
    }
    MoveCamera(Zoomed(m_camera, steps, m_home.distance));
    m_wheelEnd.start();
    event->accept();
}

}  // namespace studio
