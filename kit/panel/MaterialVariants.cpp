#include "MaterialVariants.h"

#include "MaterialLink.h"

namespace studio {

MaterialVariants::MaterialVariants(MaterialLink& link, Selection& selection, QObject* parent)
    : QObject(parent), m_link(link), m_selection(selection)
{
    connect(&m_selection, &Selection::Changed, this, &MaterialVariants::KeepAsSelected);
    connect(&m_comparing, &MaterialPreviewing::ShapesChanged, this,
            &MaterialVariants::ShapesChanged);
}

void MaterialVariants::KeepAsSelected()
{
    m_comparing.End();
    std::vector<ShapeChange> kept;
    for (const auto& shape : m_selection.All()) {
        // A shape that stays selected is compared with what it was at first.
        const auto known = std::ranges::find(m_asSelected, shape, &ShapeChange::shape);
        kept.push_back(known == m_asSelected.end()
                           ? ShapeChange{shape, shape->Applied(), shape->Applied()}
                           : *known);
    }
    m_asSelected = std::move(kept);
    Q_EMIT UsedChanged();
}

void MaterialVariants::Compare(bool isOn)
{
    if (!isOn) {
        m_comparing.End();
        return;
    }
    std::vector<ShapeChange> changes = m_asSelected;
    for (ShapeChange& change : changes) {
        change.before = change.shape->Applied();
    }
    m_comparing.Show(changes);
}

MaterialVariants::Slots& MaterialVariants::SlotsOf(const std::shared_ptr<StudioShape>& shape)
{
    Slots& slots = m_slots[shape.get()];
    if (slots.shape.lock() != shape) {
        slots = {shape, {}, Slot::A};  // the address of one that is gone
    }
    return slots;
}

MaterialVariants::Slot MaterialVariants::Used() const
{
    const auto latest = m_selection.Latest();
    const auto slots = m_slots.find(latest.get());
    return slots == m_slots.end() || slots->second.shape.lock() != latest ? Slot::A
                                                                          : slots->second.used;
}

void MaterialVariants::Use(Slot slot)
{
    std::vector<ShapeChange> changes;
    for (const auto& shape : m_selection.All()) {
        Slots& slots = SlotsOf(shape);
        const AppliedMaterial worn = shape->Applied();
        slots.materials.at(static_cast<std::size_t>(slots.used)) = worn;
        auto& wanted = slots.materials.at(static_cast<std::size_t>(slot));
        if (!wanted) {
            wanted = worn;
        }
        slots.used = slot;
        changes.push_back({shape, worn, *wanted});
    }
    m_link.Make(std::move(changes));
    Q_EMIT UsedChanged();
}

}  // namespace studio
