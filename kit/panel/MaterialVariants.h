#pragma once

#include "MaterialPreviewing.h"
#include "Selection.h"

#include <array>
#include <optional>
#include <unordered_map>

namespace studio {

class MaterialLink;

/// Each shape has two slots for its material: what it wears is in one of them, the other keeps
/// another try. And shows, as long as one asks for it, the selected shapes as they were when they
/// were selected.
class MaterialVariants : public QObject {
    Q_OBJECT

public:
    enum class Slot { A, B };

    /// All of it outlives this object.
    MaterialVariants(MaterialLink& link, Selection& selection, QObject* parent = nullptr);

    /// What the selected shapes wear stays in their slots, and they get what is in this one, as one
    /// undo step. An empty slot takes what they wear.
    void Use(Slot slot);
    /// Of the shape chosen last.
    [[nodiscard]] Slot Used() const;
    /// Of another scene there is nothing to keep.
    void Forget() { m_slots.clear(); }

    void Compare(bool isOn);

Q_SIGNALS:
    /// The shape chosen last uses another slot, or it is another one.
    void UsedChanged();
    /// Shapes are drawn otherwise now.
    void ShapesChanged();

private:
    struct Slots {
        std::weak_ptr<StudioShape> shape;
        std::array<std::optional<AppliedMaterial>, 2> materials;
        Slot used = Slot::A;
    };

    [[nodiscard]] Slots& SlotsOf(const std::shared_ptr<StudioShape>& shape);
    void KeepAsSelected();

    MaterialLink& m_link;
    Selection& m_selection;
    MaterialPreviewing m_comparing;
    std::vector<ShapeChange> m_asSelected;  ///< `after` is what they wore
    std::unordered_map<const StudioShape*, Slots> m_slots;
};

}  // namespace studio
