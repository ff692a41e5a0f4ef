#include "ViewportWidget.h"

#include "AccessibleViewport.h"
#include "Backdrop.h"
#include "FrameSource.h"
#include "OrbitMotion.h"
#include "TextureCache.h"
#include "ViewTool.h"
#include <CorvexMaterial/Prompts.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>
#include <ranges>
#include <utility>

namespace studio {
namespace {

constexpr int kRefineDelayMs = 150;
constexpr int kWheelEndMs = 250;
constexpr float kWheelUnitsPerStep = 120.0F;
constexpr int kBoxAlpha = 48;

}  // namespace

ViewportWidget::ViewportWidget(RenderService& service, QWidget* parent)
    : QWidget(parent), m_service(service), m_view(service.AddView())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Keys pressed after a click here must not go to what had the focus before.
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setProperty(CorvexMaterial::kUsableMeanwhileProperty, true);
    setMinimumSize(32, 32);
    for (QTimer* timer : {&m_refineSoon, &m_wheelEnd}) {
        timer->setSingleShot(true);
    }
    m_refineSoon.setInterval(kRefineDelayMs);
    m_wheelEnd.setInterval(kWheelEndMs);
    connect(&m_refineSoon, &QTimer::timeout, this, [this] { RequestPicture(4); });
    connect(&m_wheelEnd, &QTimer::timeout, this, &ViewportWidget::interactionFinished);
    MakeViewportsAccessible();
    connect(this, &ViewportWidget::interactionFinished, this, [this] { TellAccessibly(*this); });
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
    if (!m_wanted && !m_hold.MovesCamera()) {
        m_refineSoon.start();
    }
}

void ViewportWidget::MoveCamera(const studio::Camera& camera)
{
    m_camera = camera;
    Draw();
    Q_EMIT positionText(PositionText());
}

std::optional<QVector3D> ViewportWidget::SurfaceAt(QPointF position) const
{
    return m_source != nullptr ? m_source->SurfaceAt(m_camera.RayThrough(position, size()))
                               : std::nullopt;
}

QVector3D ViewportWidget::PointAt(QPointF position) const
{
    if (const auto surface = SurfaceAt(position)) {
        return *surface;
    }
    return PointOnTargetPlane(m_camera, m_camera.RayThrough(position, size()));
}

void ViewportWidget::AddTool(ViewTool& tool)
{
    m_tools.push_back(&tool);
    setMouseTracking(true);
    update();
}

void ViewportWidget::RemoveTool(ViewTool& tool)
{
    if (m_hold.tool == &tool) {
        CancelHold();
    }
    std::erase(m_tools, &tool);
    setMouseTracking(!m_tools.empty());
    update();
}

void ViewportWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_picture.Paint(painter, rect(), BackdropColoursOf(m_background, Frame().backdrop));
    for (ViewTool* tool : m_tools) {
        painter.save();
        tool->Paint(painter);
        painter.restore();
    }
    if (m_hold.DrawsBox()) {
        QColor inside = palette().color(QPalette::Highlight);
        painter.setPen(inside);
        inside.setAlpha(kBoxAlpha);
        painter.setBrush(inside);
        painter.drawRect(m_hold.Box());
    }
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

bool ViewportWidget::ToolTakes(const QMouseEvent& event)
{
    if (event.button() != Qt::LeftButton || event.modifiers().testFlag(Qt::AltModifier)) {
        return false;
    }
    const auto taker = std::ranges::find_if(
        m_tools | std::views::reverse, [&](ViewTool* tool) { return tool->MousePress(event); });
    m_hold.tool = taker != m_tools.rend() ? *taker : nullptr;
    return m_hold.tool != nullptr;
}

void ViewportWidget::mousePressEvent(QMouseEvent* event)
{
    if (m_hold.button != Qt::NoButton && event->buttons().testFlag(m_hold.button)) {
        return;  // a second button does not change what the first one began
    }
    m_hold = {};
    m_hold.button = event->button();
    m_hold.pressed = m_hold.last = event->position();
    m_hold.before = m_camera;
    if (ToolTakes(*event)) {
        return;
    }
    const auto surface = SurfaceAt(event->position());
    m_hold.action =
        ActionOfDrag(m_preset, m_use, {event->button(), event->modifiers(), surface.has_value()});
    // A turn that begins beside all shapes is one of all of them.
    const bool isTurn = m_hold.action == ViewAction::Orbit;
    m_hold.held = surface ? *surface : isTurn ? m_camera.target : PointAt(event->position());
}

void ViewportWidget::BeginDrag()
{
    m_hold.isDragged = true;
    if (m_hold.action != ViewAction::None) {
        setCursor(m_hold.Cursor());
    }
}

void ViewportWidget::CancelHold()
{
    const PointerHold hold = std::exchange(m_hold, {});
    unsetCursor();
    if (hold.tool != nullptr) {
        hold.tool->MouseCancel();
    } else if (hold.MovesCamera()) {
        MoveCamera(hold.before);
    }
    update();
}

void ViewportWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (m_hold.tool != nullptr) {
        m_hold.tool->MouseMove(*event);
        return;
    }
    if (m_hold.button == Qt::NoButton) {
        std::ranges::find_if(m_tools | std::views::reverse,
                             [&](ViewTool* tool) { return tool->MouseMove(*event); });
        return;
    }
    const QPointF position = event->position();
    if (!m_hold.isDragged &&
        (position - m_hold.pressed).manhattanLength() >= QApplication::startDragDistance()) {
        BeginDrag();
    }
    if (m_hold.isDragged) {
        const QPointF moved = position - std::exchange(m_hold.last, position);
        if (m_hold.MovesCamera()) {
            MoveCamera(m_hold.Moved(m_camera, moved, QSizeF(size()), m_home.distance));
        }
        update();
    }
}

void ViewportWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != m_hold.button) {
        return;
    }
    const PointerHold hold = std::exchange(m_hold, {});
    unsetCursor();
    if (hold.tool != nullptr) {
        hold.tool->MouseRelease(*event);
    } else if (hold.DrawsBox()) {
        update();
        Q_EMIT boxed(hold.Box(), event->modifiers());
    } else if (hold.MovesCamera()) {
        RefineWhenIdle();
        Q_EMIT interactionFinished();
    } else if (!hold.isDragged && hold.button == Qt::LeftButton) {
        Q_EMIT clicked(event->position().toPoint(), event->modifiers());
    }
}

// The first click of the two was one already.
void ViewportWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
    if (event->button() == Qt::LeftButton && m_hold.tool == nullptr) {
        m_hold = {};
        Q_EMIT doubleClicked(event->position().toPoint());
    }
}

void ViewportWidget::wheelEvent(QWheelEvent* event)
{
    const auto steps = static_cast<float>(event->angleDelta().y()) / kWheelUnitsPerStep;
    if (steps == 0.0F) {
        return;
    }
    MoveCamera(Zoomed(m_camera, steps, PointAt(event->position()), m_home.distance));
    m_wheelEnd.start();
    event->accept();
}

void ViewportWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && m_hold.button != Qt::NoButton) {
        CancelHold();
        return;
    }
    const bool isTaken = std::ranges::any_of(
        m_tools | std::views::reverse, [event](ViewTool* tool) { return tool->KeyPress(*event); });
    if (!isTaken) {
        QWidget::keyPressEvent(event);
    }
}

void ViewportWidget::leaveEvent(QEvent* event)
{
    for (ViewTool* tool : m_tools) {
        tool->MouseLeave();
    }
    QWidget::leaveEvent(event);
}

void ViewportWidget::hideEvent(QHideEvent* event)
{
    CancelHold();
    QWidget::hideEvent(event);
}

}  // namespace studio
