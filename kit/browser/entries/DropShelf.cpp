#include "DropShelf.h"

#include "MaterialDragging.h"

#include <QDropEvent>
#include <QMimeData>

namespace studio {

DropShelf::DropShelf(QWidget* browser) : QLabel(browser)
{
    setObjectName(QStringLiteral("dropShelf"));
    setAcceptDrops(true);
    setAutoFillBackground(true);
    setAlignment(Qt::AlignCenter);
    setTextFormat(Qt::PlainText);
    hide();
}

void DropShelf::Offer(const QString& library)
{
    setText(tr("Drop here to add to %1").arg(library));
    const int height = 2 * fontMetrics().height();
    // The panel may be scrolled so that the browser's own end is not seen.
    const QRect seen = parentWidget()->visibleRegion().boundingRect();
    setGeometry(seen.left(), seen.bottom() + 1 - height, seen.width(), height);
    Light(false);
    show();
    raise();
}

void DropShelf::Light(bool isOver)
{
    setBackgroundRole(isOver ? QPalette::Highlight : QPalette::Button);
    setForegroundRole(isOver ? QPalette::HighlightedText : QPalette::ButtonText);
}

void DropShelf::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(QLatin1String(kMaterialFormat))) {
        event->acceptProposedAction();
        Light(true);
    }
}

void DropShelf::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    Light(false);
}

void DropShelf::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    Q_EMIT Dropped();
}

}  // namespace studio
