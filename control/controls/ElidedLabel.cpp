#include "ElidedLabel.h"

#include <QStylePainter>

namespace CorvexMaterial {

ElidedLabel::ElidedLabel(Qt::TextElideMode mode, QWidget* parent) : QLabel(parent), m_mode(mode)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/)
{
    const QRect area = contentsRect();
    QStylePainter(this).drawItemText(area, static_cast<int>(alignment()), palette(), isEnabled(),
                                     fontMetrics().elidedText(text(), m_mode, area.width()),
                                     foregroundRole());
}

}  // namespace CorvexMaterial
