#include "PanelFill.h"

#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/Twips.h>

#include <QEvent>
#include <QScrollArea>

namespace studio {

PanelFill::PanelFill(CorvexMaterial::Material& material, QScrollArea& area)
    : QObject(&area), m_material(material), m_area(area)
{
    m_area.viewport()->installEventFilter(this);
}

bool PanelFill::Done(CorvexMaterial::Status status)
{
    if (status == CorvexMaterial::Status::Success) {
        return true;
    }
    Q_EMIT Failed(tr("The layout of the material panel cannot be changed"), status);
    return false;
}

void PanelFill::Fill()
{
    if (m_filled || !Done(m_material.SaveStatus())) {
        return;
    }
    m_filled = true;
    OfferHeight();
    Q_EMIT Changed(true);
}

void PanelFill::OfferHeight()
{
    const int height = m_area.viewport()->height();
    // The control shares out whole rows; what stands around them may then need a little more.
    if (Done(m_material.SetMaxStatus(height * CorvexMaterial::kTwipsPerPixel))) {
        const int excess = m_material.sizeHint().height() - height;
        if (excess > 0 && excess < height) {
            Done(m_material.SetMaxStatus((height - excess) * CorvexMaterial::kTwipsPerPixel));
        }
    }
}

void PanelFill::Restore()
{
    if (!m_filled) {
        return;
    }
    m_filled = false;
    Done(m_material.LoadSavedLayout());
    Q_EMIT Changed(false);
}

bool PanelFill::eventFilter(QObject* watched, QEvent* event)
{
    if (m_filled && event->type() == QEvent::Resize) {
        OfferHeight();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace studio
