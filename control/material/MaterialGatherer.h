#pragma once

#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/MaterialEdit.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

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
    /// As long as `use` runs, these rows are gathered instead of what the panel shows.
    template <typename Use>
    void With(const std::vector<EditedRow>& rows, Use&& use)
    {
        class Tried {
        public:
            Tried(MaterialGatherer& gatherer, const std::vector<EditedRow>& rows)
                : m_gatherer(gatherer)
            {
                m_gatherer.m_tried = &rows;
            }
            ~Tried()
            {
                m_gatherer.m_tried = nullptr;
                m_gatherer.Forget();
            }
            Tried(const Tried&) = delete;
            Tried& operator=(const Tried&) = delete;

        private:
            MaterialGatherer& m_gatherer;
        };
        const Tried tried(*this, rows);
        use();
    }

private:
    IMaterial& m_control;
    PanelAttributes& m_attributes;
    std::shared_ptr<const CorvexSG::GatheredMaterial> m_gathered;
    std::uint64_t m_changes = 0;
    const std::vector<EditedRow>* m_tried = nullptr;
};

}  // namespace CorvexMaterial
