#include "studio/app/PanelArea.h"

#include <QEvent>

namespace studio {

PanelArea::PanelArea(QWidget* parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // Always there: a bar that comes and goes would change the width of everything beside it.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

int PanelArea::WidthFor(const QSize& content) const
{
    return std::max(content.width(), 0) + verticalScrollBar()->sizeHint().width() +
           2 * frameWidth();
}

QSize PanelArea::minimumSizeHint() const
{
    const QSize content = widget() != nullptr ? widget()->minimumSizeHint() : QSize();
    return {WidthFor(content), fontMetrics().height() * 6};
}

QSize PanelArea::sizeHint() const
{
    const QSize content = widget() != nullptr ? widget()->sizeHint() : QSize(240, 400);
    return {WidthFor(content), content.height()};
}

bool PanelArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

}  // namespace studio
