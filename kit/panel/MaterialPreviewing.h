#pragma once

#include "ShapeChange.h"

#include <QObject>

#include <vector>

namespace studio {

/// Shows shapes as an edit would leave them that is not made yet. Only what is drawn changes: not
/// what the shapes are, and so neither undo nor the document nor what is kept for a crash. A shape
/// that gets another material meanwhile shows that one.
class MaterialPreviewing : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~MaterialPreviewing() override { Restore(); }

    /// In the place of what was shown before.
    void Show(const std::vector<ShapeChange>& changes);
    void End();
    [[nodiscard]] bool IsOn() const { return !m_shapes.empty(); }

Q_SIGNALS:
    /// Shapes are drawn otherwise now.
    void ShapesChanged();

private:
    void Restore();

    ShapeList m_shapes;
};

}  // namespace studio
