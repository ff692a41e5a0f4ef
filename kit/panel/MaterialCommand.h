#pragma once

#include "MaterialFields.h"
#include "ShapeChange.h"

#include <QUndoCommand>

#include <chrono>

namespace studio {

/// Materials that are applied in the same way.
[[nodiscard]] bool IsSame(const CorvexSG::GatheredMaterial& one,
                          const CorvexSG::GatheredMaterial& other);
[[nodiscard]] bool ChangesNothing(const ShapeChange& change);
/// Whether the renderer draws the shape otherwise than before.
[[nodiscard]] bool LooksDifferent(const ShapeChange& change);
/// What differs in any of the shapes.
[[nodiscard]] FieldSet Differences(const std::vector<ShapeChange>& changes);

/// One step of the undo history: a change of the materials of some shapes, already made when the
/// step is pushed. Edits of the same fields of the same shapes become one step when they are one
/// drag, or when they are none and follow each other quickly, as typing produces them; one that
/// ends where it began vanishes.
class MaterialCommand : public QUndoCommand {
public:
    /// Edits further apart than this stay two steps.
    static constexpr std::chrono::milliseconds kMergeWithin{1000};

    /// Called after each undo and redo with the shapes that changed.
    using Shown = std::function<void(const ShapeList&)>;

    struct Moment {
        std::chrono::milliseconds at{};
        std::uint32_t gesture = 0;  ///< number of the drag; 0 for none
    };

    /// The fields are what the user edited, which the step is called after.
    MaterialCommand(std::vector<ShapeChange> changes, FieldSet fields, Moment made, Shown shown);

    void undo() override;
    void redo() override;
    int id() const override { return 1; }
    bool mergeWith(const QUndoCommand* other) override;

private:
    [[nodiscard]] bool Continues(const MaterialCommand& earlier) const;
    [[nodiscard]] ShapeList Shapes() const;

    std::vector<ShapeChange> m_changes;
    FieldSet m_fields;
    Moment m_made;
    Shown m_shown;
    bool m_isMade = true;
};

}  // namespace studio
