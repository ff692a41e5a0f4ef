#include "PanelArea.h"

#include <QEvent>

namespace studio {

PanelArea::PanelArea(QWidget* parent) : QScrollArea(parent)
{
    setAccessibleName(tr("Material panel"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Always there: a bar that comes and goes would change the width of everything beside it.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

int PanelArea::WidthAround(int contentWidth) const
{
    return contentWidth + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

QSize PanelArea::minimumSizeHint() const
{
    const int content = widget() != nullptr ? widget()->minimumSizeHint().width() : 0;
    return {WidthAround(std::max(content, m_widest)), fontMetrics().height() * 6};
}

QSize PanelArea::sizeHint() const
{
    const QSize content = widget() != nullptr ? widget()->sizeHint() : QSize(240, 400);
    return {WidthAround(std::max(content.width(), m_widest)), content.height()};
}

bool PanelArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        m_widest = std::max(m_widest, widget()->minimumSizeHint().width());
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace studio
