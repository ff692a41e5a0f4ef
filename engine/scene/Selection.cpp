#include "Selection.h"

namespace studio {

bool Selection::Contains(const StudioShape& shape) const
{
    return m_members.contains(&shape);
}

std::shared_ptr<StudioShape> Selection::Latest() const
{
    return m_shapes.empty() ? nullptr : m_shapes.back();
}

void Selection::Click(const std::shared_ptr<StudioShape>& shape, Qt::KeyboardModifiers modifiers)
{
    if (!modifiers.testFlag(Qt::ControlModifier)) {
        Set({shape});
        return;
    }
    Shapes shapes = m_shapes;
    if (std::erase(shapes, shape) == 0) {
        shapes.push_back(shape);
    }
    Set(shapes);
}

void Selection::Set(const Shapes& shapes)
{
    Shapes kept;
    std::unordered_set<const StudioShape*> members;
    for (const auto& shape : shapes) {
        if (shape != nullptr && members.insert(shape.get()).second) {
            kept.push_back(shape);
        }
    }
    if (kept != m_shapes) {
        Q_EMIT AboutToChange();
        m_shapes = std::move(kept);
        m_members = std::move(members);
        Q_EMIT Changed();
    }
}

}  // namespace studio
