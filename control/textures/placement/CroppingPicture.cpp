#include "CroppingPicture.h"

#include "AccessibleRole.h"
#include "Checkerboard.h"
#include <CorvexMaterial/LegibleColours.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace CorvexMaterial {

namespace {

constexpr qreal kBorder = kPictureBorder;
constexpr qreal kHandle = 7.0;
constexpr double kReach = 6.0;
const QColor kShade(0, 0, 0, 120);

PicturePoint PointOf(const QMouseEvent& event)
{
    return {event.position().x(), event.position().y()};
}

Qt::CursorShape CursorOf(CropGrip grip)
{
    if (grip.HoldsAll()) {
        return Qt::SizeAllCursor;
    }
    const bool horizontal = grip.left || grip.right;
    const bool vertical = grip.top || grip.bottom;
    if (horizontal && vertical) {
        return grip.left == grip.top ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    if (horizontal) {
        return Qt::SizeHorCursor;
    }
    return vertical ? Qt::SizeVerCursor : Qt::CrossCursor;
}

/// White on black: one of them stands out on any image. Handles at the edge stay in the picture.
void PaintHandle(QPainter& painter, QPointF corner, const QSizeF& size)
{
    constexpr qreal kInset = kHandle / 2 + 1;
    const QPointF at(std::min(std::max(corner.x(), kInset), size.width() - kInset),
                     std::min(std::max(corner.y(), kInset), size.height() - kInset));
    const QRectF square(at.x() - kHandle / 2, at.y() - kHandle / 2, kHandle, kHandle);
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(Qt::white);
    painter.drawRect(square);
}

}  // namespace

CroppingPicture::CroppingPicture(QWidget* parent) : QWidget(parent)
{
    SetAccessibleRole(*this, QAccessible::Graphic);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    SetImage({}, FitIntoCropArea(0, 0));
}

void CroppingPicture::SetImage(const QImage& image, const CropFit& fit)
{
    m_image = image;
    m_fit = fit;
    setFixedSize(m_fit.width, m_fit.height);
    update();
}

void CroppingPicture::SetRect(const CropRect& rect)
{
    m_rect = rect;
    update();
}

QSize CroppingPicture::sizeHint() const
{
    return {m_fit.width, m_fit.height};
}

PictureSize CroppingPicture::Extent() const
{
    return {static_cast<double>(width()), static_cast<double>(height())};
}

PicturePoint CroppingPicture::FractionOf(PicturePoint at) const
{
    return FractionAt(at, Extent());
}

CropGrip CroppingPicture::GripOf(PicturePoint at) const
{
    return GripAt(m_rect, FractionOf(at), {kReach / width(), kReach / height()});
}

void CroppingPicture::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const PicturePoint at = PointOf(*event);
    if (event->modifiers() & Qt::ShiftModifier) {
        m_grip = GripOf(at);
        m_gripStart = m_rect;
        m_gripFrom = FractionOf(at);
        return;
    }
    m_drawing = true;
    Q_EMIT DragStarted(at);
}

void CroppingPicture::mouseMoveEvent(QMouseEvent* event)
{
    const PicturePoint at = PointOf(*event);
    if (m_drawing) {
        Q_EMIT DragMoved(at);
    } else if (m_grip.HoldsAnything()) {
        const PicturePoint now = FractionOf(at);
        Q_EMIT RectChanged(
            Pulled(m_gripStart, m_grip, {now.x - m_gripFrom.x, now.y - m_gripFrom.y}));
    } else {
        ShowCursor(at, event->modifiers());
    }
}

void CroppingPicture::ShowCursor(PicturePoint at, Qt::KeyboardModifiers modifiers)
{
    const bool gripping = (modifiers & Qt::ShiftModifier) != 0;
    setCursor(gripping ? CursorOf(GripOf(at)) : Qt::CrossCursor);
}

void CroppingPicture::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_grip = {};
    if (m_drawing) {
        m_drawing = false;
        Q_EMIT DragEnded();
    }
}

void CroppingPicture::keyPressEvent(QKeyEvent* event)
{
    PicturePoint step;
    switch (event->key()) {
    case Qt::Key_Left:
        step.x = -1;
        break;
    case Qt::Key_Right:
        step.x = 1;
        break;
    case Qt::Key_Up:
        step.y = -1;
        break;
    case Qt::Key_Down:
        step.y = 1;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    const CropGrip lowerRight{false, false, true, true};
    const bool resize = (event->modifiers() & Qt::ShiftModifier) != 0;
    Q_EMIT RectChanged(Pulled(m_rect, resize ? lowerRight : CropGrip{true, true, true, true},
                              {step.x / width(), step.y / height()}));
}

void CroppingPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    PaintImage(painter);
    PaintRect(painter);
    painter.setPen(hasFocus() ? palette().color(QPalette::Highlight) : EdgeOf(palette()));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void CroppingPicture::PaintImage(QPainter& painter) const
{
    const QRect area = rect().adjusted(1, 1, -1, -1);
    if (m_image.isNull()) {
        painter.fillRect(area, palette().color(QPalette::Base));
        return;
    }
    if (m_image.hasAlphaChannel()) {
        PaintCheckerboard(painter, area);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform, m_fit.smooth);
    painter.drawImage(area, m_image);
}

void CroppingPicture::PaintRect(QPainter& painter) const
{
    const qreal across = width() - 2 * kBorder;
    const qreal down = height() - 2 * kBorder;
    const QRectF crop(QPointF(kBorder + m_rect.left * across, kBorder + m_rect.top * down),
                      QPointF(kBorder + m_rect.right * across, kBorder + m_rect.bottom * down));
    QPainterPath outside;
    outside.addRect(rect());
    outside.addRect(crop);
    painter.fillPath(outside, kShade);

    const QRectF line = crop.adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 3));
    painter.drawRect(line);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(line);

    const QPointF centre = crop.center();
    for (const qreal x : {crop.left(), centre.x(), crop.right()}) {
        for (const qreal y : {crop.top(), centre.y(), crop.bottom()}) {
            if (QPointF(x, y) != centre) {
                PaintHandle(painter, {x, y}, size());
            }
        }
    }
}

}  // namespace CorvexMaterial
