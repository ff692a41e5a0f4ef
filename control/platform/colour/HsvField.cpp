#include "HsvField.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace CorvexMaterial {

namespace {

/// As many as tell neighbours apart; the painter fills in between.
constexpr int kHsvCells = 64;
constexpr qreal kMarkRadius = 5.0;
constexpr int kFarther = 10;

QAccessibleInterface* AccessibleField(const QString& /*className*/, QObject* object)
{
    auto* field = qobject_cast<HsvField*>(object);
    return field != nullptr ? new QAccessibleWidget(field, QAccessible::ColorChooser) : nullptr;
}

}  // namespace

HsvField::HsvField(QWidget* parent) : QWidget(parent)
{
    [[maybe_unused]] static const bool once = [] {
        QAccessible::installFactory(AccessibleField);
        return true;
    }();
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
}

void HsvField::Show(const HsvColour& value)
{
    if (value != m_value) {
        m_value = value;
        setAccessibleDescription(value.Shown().name());
        update();
    }
}

// The mark stays whole at the edges.
QRectF HsvField::Picture() const
{
    return QRectF(rect()).adjusted(kMarkRadius, kMarkRadius, -kMarkRadius, -kMarkRadius);
}

void HsvField::MoveTo(QPointF place)
{
    const HsvColour value = At({std::clamp(place.x(), 0.0, 1.0), std::clamp(place.y(), 0.0, 1.0)});
    Show(value);
    Q_EMIT Moved(value);
}

void HsvField::paintEvent(QPaintEvent* /*event*/)
{
    QImage cells(kHsvCells, kHsvCells, QImage::Format_RGB32);
    for (int y = 0; y < kHsvCells; ++y) {
        for (int x = 0; x < kHsvCells; ++x) {
            const QPointF place(x / (kHsvCells - 1.0), y / (kHsvCells - 1.0));
            cells.setPixel(x, y, At(place).Shown().rgb());
        }
    }
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF picture = Picture();
    painter.drawImage(picture, cells);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid),
                        hasFocus() ? 2 : 1));
    painter.drawRect(picture);
    const QPointF place = PlaceOf(m_value);
    const QPointF mark(picture.left() + place.x() * picture.width(),
                       picture.top() + place.y() * picture.height());
    // White in black: one of them stands out on any colour.
    painter.setPen(QPen(Qt::black, 3));
    painter.drawEllipse(mark, kMarkRadius - 1, kMarkRadius - 1);
    painter.setPen(QPen(Qt::white, 1.5));
    painter.drawEllipse(mark, kMarkRadius - 1, kMarkRadius - 1);
}

void HsvField::mousePressEvent(QMouseEvent* event)
{
    mouseMoveEvent(event);
}

void HsvField::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) {
        const QRectF picture = Picture();
        const QPointF inside = event->position() - picture.topLeft();
        MoveTo({inside.x() / picture.width(), inside.y() / picture.height()});
    }
}

void HsvField::keyPressEvent(QKeyEvent* event)
{
    QPoint direction;
    switch (event->key()) {
    case Qt::Key_Left:
        direction = {-1, 0};
        break;
    case Qt::Key_Right:
        direction = {1, 0};
        break;
    case Qt::Key_Up:
        direction = {0, -1};
        break;
    case Qt::Key_Down:
        direction = {0, 1};
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    const int steps = event->modifiers().testFlag(Qt::ShiftModifier) ? kFarther : 1;
    MoveTo(PlaceOf(m_value) +
           QPointF(direction.x() * steps * Step().x(), direction.y() * steps * Step().y()));
}

QPointF SaturationField::PlaceOf(const HsvColour& value) const
{
    return {value.saturation, 1.0 - value.value};
}

HsvColour SaturationField::At(QPointF place) const
{
    return {Value().hue, place.x(), 1.0 - place.y()};
}

QPointF HueStrip::PlaceOf(const HsvColour& value) const
{
    return {0.5, value.hue};
}

// The strip shows hues as they are, whatever the colour is.
HsvColour HueStrip::At(QPointF place) const
{
    return {place.y(), 1.0, 1.0};
}

}  // namespace CorvexMaterial
