#include "Selection.h"

#include <algorithm>

namespace studio {

bool Selection::Contains(const StudioShape& shape) const
{
    return m_members.contains(&shape);
}

std::shared_ptr<StudioShape> Selection::Latest() const
{
    return m_shapes.empty() ? nullptr : m_shapes.back();
}

void Selection::Choose(const Shapes& shapes, Qt::KeyboardModifiers modifiers)
{
    const bool toggles = modifiers.testFlag(Qt::ControlModifier);
    if (!toggles && !modifiers.testFlag(Qt::ShiftModifier)) {
        Set(shapes);
        return;
    }
    const std::unordered_set<std::shared_ptr<StudioShape>> chosen(shapes.begin(), shapes.end());
    Shapes result;
    std::ranges::copy_if(m_shapes, std::back_inserter(result),
                         [&](const auto& shape) { return !chosen.contains(shape); });
    std::ranges::copy_if(shapes, std::back_inserter(result), [&](const auto& shape) {
        return !toggles || shape == nullptr || !Contains(*shape);
    });
    Set(result);
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
