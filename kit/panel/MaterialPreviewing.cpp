#include "MaterialPreviewing.h"

#include <utility>

namespace studio {

void MaterialPreviewing::Show(const std::vector<ShapeChange>& changes)
{
    Restore();
    for (const ShapeChange& change : changes) {
        change.shape->ShowInstead(change.after);
        m_shapes.push_back(change.shape);
    }
    Q_EMIT ShapesChanged();
}

void MaterialPreviewing::End()
{
    if (IsOn()) {
        Restore();
        Q_EMIT ShapesChanged();
    }
}

void MaterialPreviewing::Restore()
{
    for (const auto& shape : std::exchange(m_shapes, {})) {
        shape->ShowInstead(std::nullopt);
    }
}

}  // namespace studio
