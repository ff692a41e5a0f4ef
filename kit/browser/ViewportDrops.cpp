#include "ViewportDrops.h"

#include "LibraryDrag.h"
#include "MaterialName.h"
#include "StudioShape.h"
#include "ViewportWidget.h"

#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>

namespace studio {

ViewportDrops::ViewportDrops(ViewportWidget& viewport, Pick pick)
    : QObject(&viewport), m_viewport(viewport), m_pick(std::move(pick))
{
    m_viewport.setAcceptDrops(true);
    m_viewport.installEventFilter(this);
}

bool ViewportDrops::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::DragEnter:
        return Enter(*static_cast<QDropEvent*>(event));
    case QEvent::DragMove:
        Move(*static_cast<QDropEvent*>(event));
        return true;
    case QEvent::DragLeave:
        m_dragged.clear();
        Q_EMIT Hint({});
        return true;
    case QEvent::Drop:
        Drop(*static_cast<QDropEvent*>(event));
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

// What is neither is left to the window around the viewport.
bool ViewportDrops::Enter(QDropEvent& event)
{
    if (const auto material = DraggedMaterial(*event.mimeData())) {
        const bool isNamed = !material->name.empty();
        m_dragged =
            QString::fromStdString(isNamed ? material->name : DescriptiveName(material->material));
        m_isThere = true;
    } else {
        const QFileInfo texture(DraggedTexture(*event.mimeData()));
        m_dragged = texture.fileName();
        m_isThere = texture.isFile();
    }
    event.setAccepted(!m_dragged.isEmpty());
    return !m_dragged.isEmpty();
}

void ViewportDrops::Move(QDropEvent& event)
{
    const ShapePointer shape = m_pick(event.position().toPoint());
    if (shape == nullptr || !m_isThere) {
        event.ignore();
        Q_EMIT Hint(m_isThere ? QString() : tr("%1 is not a file").arg(m_dragged));
        return;
    }
    event.acceptProposedAction();
    Q_EMIT Hint(tr("Put %1 on %2").arg(m_dragged, QString::fromStdString(shape->Name())));
}

void ViewportDrops::Drop(QDropEvent& event)
{
    m_dragged.clear();
    Q_EMIT Hint({});
    const ShapePointer shape = m_pick(event.position().toPoint());
    if (shape == nullptr || !m_isThere) {
        event.ignore();
        return;
    }
    event.acceptProposedAction();
    if (const auto material = DraggedMaterial(*event.mimeData())) {
        QMetaObject::invokeMethod(
            this, [this, shape, material] { Q_EMIT MaterialDropped(shape, *material); },
            Qt::QueuedConnection);
    } else if (const QString file = DraggedTexture(*event.mimeData()); !file.isEmpty()) {
        QMetaObject::invokeMethod(
            this, [this, shape, file] { Q_EMIT TextureDropped(shape, file); },
            Qt::QueuedConnection);
    }
}

}  // namespace studio
