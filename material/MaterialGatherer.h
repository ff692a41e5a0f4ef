#pragma once

#include "host/CorvexSG.h"

#include <memory>

namespace CorvexMaterial {

class IMaterial;
class PanelAttributes;

/// The material as it is handed to shapes. Gathered when it is first asked for after a change and
/// shared from then on, so that applying to many shapes reads the panel once.
class MaterialGatherer {
public:
    MaterialGatherer(IMaterial& control, PanelAttributes& attributes);

    std::shared_ptr<const CorvexSG::GatheredMaterial> Gather();
    void Forget() { m_gathered.reset(); }

private:
    IMaterial& m_control;
    PanelAttributes& m_attributes;
    std::shared_ptr<const CorvexSG::GatheredMaterial> m_gathered;
};

}  // namespace CorvexMaterial
