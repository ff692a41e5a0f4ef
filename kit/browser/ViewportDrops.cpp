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
        Leave();
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
    m_material = DraggedMaterial(*event.mimeData());
    m_texture = m_material ? QString() : DraggedTexture(*event.mimeData());
    if (m_material) {
        const bool isNamed = !m_material->name.empty();
        m_dragged = QString::fromStdString(isNamed ? m_material->name
                                                   : DescriptiveName(m_material->material));
        m_isThere = true;
    } else {
        const QFileInfo texture(m_texture);
        m_dragged = texture.fileName();
        m_isThere = texture.isFile();
    }
    event.setAccepted(!m_dragged.isEmpty());
    return !m_dragged.isEmpty();
}

void ViewportDrops::Move(QDropEvent& event)
{
    const ShapePointer shape = m_isThere ? m_pick(event.position().toPoint()) : nullptr;
    GoOver(shape);
    if (shape == nullptr) {
        event.ignore();
        Q_EMIT Hint(m_isThere ? QString() : tr("%1 is not a file").arg(m_dragged));
        return;
    }
    event.acceptProposedAction();
    Q_EMIT Hint(tr("Put %1 on %2").arg(m_dragged, QString::fromStdString(shape->Name())));
}

DroppedMaterial ViewportDrops::DraggedOnto(const StudioShape& shape) const
{
    if (m_material) {
        return *m_material;
    }
    DroppedMaterial textured;
    textured.material = shape.Material();
    textured.material.Textures.primary = m_texture.toStdString();
    return textured;
}

void ViewportDrops::GoOver(const ShapePointer& shape)
{
    if (shape != m_over) {
        m_over = shape;
        Q_EMIT Over(shape,
                    shape != nullptr ? DraggedOnto(*shape).material : CorvexDB::udtMaterial());
    }
}

void ViewportDrops::Leave()
{
    m_dragged.clear();
    GoOver(nullptr);
    Q_EMIT Hint({});
}

void ViewportDrops::Drop(QDropEvent& event)
{
    const ShapePointer shape = m_isThere ? m_pick(event.position().toPoint()) : nullptr;
    if (shape == nullptr) {
        event.ignore();
        Leave();
        return;
    }
    event.acceptProposedAction();
    QMetaObject::invokeMethod(
        this,
        [this, shape, material = DraggedOnto(*shape)] {
            Q_EMIT Dropped(shape, material);
            Leave();
        },
        Qt::QueuedConnection);
}

}  // namespace studio
