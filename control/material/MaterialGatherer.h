#pragma once

#include <CorvexMaterial/CorvexSG.h>

#include <cstdint>
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
    /// Everything that the panel shows, whatever of it shapes take at present.
    CorvexDB::udtMaterial Whole();
    void Forget();

private:
    IMaterial& m_control;
    PanelAttributes& m_attributes;
    std::shared_ptr<const CorvexSG::GatheredMaterial> m_gathered;
    std::uint64_t m_changes = 0;
};

}  // namespace CorvexMaterial
