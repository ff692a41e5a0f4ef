#include "MaterialGatherer.h"

#include "PanelAttributes.h"
#include "TouchedRows.h"
#include "Trap.h"
#include <CorvexMaterial/IMaterial.h>
#include <CorvexMaterial/Schema.h>

namespace CorvexMaterial {

MaterialGatherer::MaterialGatherer(IMaterial& control, PanelAttributes& attributes)
    : m_control(control), m_attributes(attributes)
{
}

CorvexDB::udtMaterial MaterialGatherer::Whole()
{
    CorvexDB::udtMaterial material = m_attributes.Record();
    if (!material.Plugin.empty()) {
        Require(m_control.GetPluginParameterValues(material.PluginParameters));
        material.PluginParameters.resize(m_attributes.PluginParameterCount());
    }
    return material;
}

std::shared_ptr<const CorvexSG::GatheredMaterial> MaterialGatherer::Gather()
{
    if (m_gathered) {
        return m_gathered;
    }
    // The host may change the panel while it is asked; what was read before is not kept then.
    const std::uint64_t before = m_changes;
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material = Whole();
    if (m_tried != nullptr) {
        TakeRows(gathered->material, *m_tried);
    }
    gathered->applyMode = m_attributes.ApplyRelative();
    if (gathered->applyMode == CorvexDB::ApplyMode::FilesOnly) {
        KeepTextureUse(gathered->material, {});
    }
    Require(m_control.sCreateRayTraceCombinedAttributes(gathered->combinedRaytraceAttributes));
    if (before == m_changes) {
        m_gathered = gathered;
    }
    return gathered;
}

void MaterialGatherer::Forget()
{
    m_gathered.reset();
    ++m_changes;
}

}  // namespace CorvexMaterial
