#include "PanelFill.h"

#include "MaterialLink.h"
#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/Twips.h>

#include <QEvent>
#include <QScrollArea>

namespace studio {

PanelFill::PanelFill(CorvexMaterial::Material& material, MaterialLink& link, QScrollArea& area)
    : QObject(&area), m_material(material), m_link(link), m_area(area)
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
    Q_EMIT AboutToReload();
    ReloadLayout();
    Q_EMIT Changed(false);
}

// The control reads its layout only together with the saved material, which is the one of the last
// start; so what is shown now is carried across.
void PanelFill::ReloadLayout()
{
    const CorvexDB::udtMaterial* shown = m_link.ShownMaterial();
    const CorvexDB::udtMaterial material = shown != nullptr ? *shown : CorvexDB::udtMaterial();
    std::int32_t primitive = 0;
    CorvexDB::ApplyMode applyMode{};
    const bool known = Done(m_material.get_lPreviewPrimitive(primitive)) &&
                       Done(m_material.get_ApplyRelative(applyMode));
    if (!known || !Done(m_material.LoadSavedStatus())) {
        return;
    }
    Done(m_material.CopyFieldToFormMaterial(material));
    Done(m_material.put_lPreviewPrimitive(primitive));
    Done(m_material.put_ApplyRelative(applyMode));
}

bool PanelFill::eventFilter(QObject* watched, QEvent* event)
{
    if (m_filled && event->type() == QEvent::Resize) {
        OfferHeight();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace studio
