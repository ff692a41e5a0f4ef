#pragma once

#include "StudioShape.h"

#include <QObject>

#include <memory>
#include <unordered_set>
#include <vector>

namespace studio {

/// The shapes that the user works on, in the order in which they were chosen.
class Selection : public QObject {
    Q_OBJECT

public:
    using Shapes = std::vector<std::shared_ptr<StudioShape>>;

    using QObject::QObject;

    [[nodiscard]] const Shapes& All() const { return m_shapes; }
    [[nodiscard]] bool Contains(const StudioShape& shape) const;
    /// The shape chosen last, null when nothing is selected.
    [[nodiscard]] std::shared_ptr<StudioShape> Latest() const;

    /// A click on shapes, or a box around them: selects them alone; with Shift adds them, as those
    /// chosen last, with Ctrl too, but takes away those that were selected. Without shapes it
    /// clears, with a key it changes nothing.
    void Choose(const Shapes& shapes, Qt::KeyboardModifiers modifiers);
    /// Nulls and repetitions are left out.
    void Set(const Shapes& shapes);
    void Clear() { Set({}); }

Q_SIGNALS:
    /// The shapes that are selected still are about to be others.
    void AboutToChange();
    /// The selected shapes or their order are now others.
    void Changed();

private:
    Shapes m_shapes;
    std::unordered_set<const StudioShape*> m_members;
};

}  // namespace studio
