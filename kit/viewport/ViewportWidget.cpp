#include "ViewportWidget.h"

#include "AccessibleViewport.h"
#include "Backdrop.h"
#include "TextureCache.h"
#include "ViewTool.h"
#include <CorvexMaterial/Prompts.h>

#include <QPainter>

#include <cmath>
#include <utility>

namespace studio {
namespace {

constexpr int kRefineDelayMs = 150;
constexpr int kMotionEndMs = 250;
constexpr int kBoxAlpha = 48;
constexpr double kFocusWidth = 2.0;

}  // namespace

ViewportWidget::ViewportWidget(RenderService& service, QWidget* parent)
    : QWidget(parent), m_service(service), m_view(service.AddView())
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setProperty(CorvexMaterial::kUsableMeanwhileProperty, true);
    setMinimumSize(32, 32);
    for (QTimer* timer : {&m_refineSoon, &m_motionEnd}) {
        timer->setSingleShot(true);
    }
    m_refineSoon.setInterval(kRefineDelayMs);
    m_motionEnd.setInterval(kMotionEndMs);
    connect(&m_refineSoon, &QTimer::timeout, this, [this] { RequestPicture(4); });
    connect(&m_motionEnd, &QTimer::timeout, this, &ViewportWidget::interactionFinished);
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

void ViewportWidget::GoTo(const studio::Camera& camera)
{
    MoveCamera(camera);
    Q_EMIT interactionFinished();
}

void ViewportWidget::SetHomeCamera(const studio::Camera& home,
                                   const std::optional<studio::Camera>& shown)
{
    m_home = home;
    MoveCamera(shown.value_or(home));
    Q_EMIT homeChanged();
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
    return (m_camera.lens == Lens::Parallel ? tr("Yaw %1°  Pitch %2°  Zoom %3 %  Parallel")
                                            : tr("Yaw %1°  Pitch %2°  Zoom %3 %"))
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

void ViewportWidget::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    m_picture.Paint(painter, rect(), BackdropColoursOf(m_background, Frame().backdrop));
    PaintOver(painter);
}

void ViewportWidget::PaintOver(QPainter& painter)
{
    for (ViewTool* tool : m_tools) {
        painter.save();
        tool->Paint(painter);
        painter.restore();
    }
    const QColor highlight = palette().color(QPalette::Highlight);
    if (m_hold.DrawsBox()) {
        const bool touches = RuleOfBox(m_preset, m_hold.pressed, m_hold.last) == BoxRule::Touching;
        QColor inside = highlight;
        inside.setAlpha(kBoxAlpha);
        painter.setPen(QPen(highlight, 1.0, touches ? Qt::DashLine : Qt::SolidLine));
        painter.setBrush(inside);
        painter.drawRect(m_hold.Box());
    }
    if (m_showsFocus) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(highlight, kFocusWidth));
        constexpr double kInset = kFocusWidth / 2.0;
        painter.drawRect(QRectF(rect()).adjusted(kInset, kInset, -kInset, -kInset));
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

}  // namespace studio
