#include "Swatch.h"

#include <CorvexMaterial/LegibleColours.h>

#include <QPainter>

namespace CorvexMaterial {

Swatch::Swatch(QWidget* parent) : QAbstractButton(parent), m_color(Qt::white)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void Swatch::SetColour(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    m_color = QColor(bytes.red, bytes.green, bytes.blue);
    setAccessibleDescription(m_color.name());
    update();
}

Colour Swatch::Value() const
{
    return MakeColour({m_color.red(), m_color.green(), m_color.blue()});
}

void Swatch::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor edge = hasFocus() ? palette().color(QPalette::Highlight) : EdgeOf(palette());
    painter.setPen(QPen(edge, hasFocus() ? 2.0 : 1.0));
    painter.setBrush(isEnabled() ? m_color : palette().color(QPalette::Button));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace CorvexMaterial
