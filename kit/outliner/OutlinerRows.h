#pragma once

#include "ShapeChange.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace studio {

/// A material of the scene and the shapes that have it in common.
struct OutlinerMaterial {
    QString name;
    bool isNamed = false;  ///< else the name tells what one sees of it
    ShapeList wearers;     ///< all of them, in the scene's order
    ShapeList shown;       ///< those that the search leaves
};

enum class OutlinerOrder : std::uint8_t { Scene, ByShape, ByMaterial };

/// What an outliner lists of a scene.
struct OutlinerRows {
    ShapeList shapes;                         ///< that the search leaves, in order
    std::vector<std::size_t> materialOf;      ///< of each of them
    std::vector<OutlinerMaterial> materials;  ///< by name; those without a shape that is shown last
    std::size_t shownMaterials = 0;
};

/// A search finds what has all of its words in the name of the shape or of its material, in any
/// case.
[[nodiscard]] OutlinerRows RowsOf(const ShapeList& scene, const QString& search,
                                  OutlinerOrder order, Qt::SortOrder direction);

/// Whether both list the same shapes in the same way, whatever these look like.
[[nodiscard]] bool HaveSameRows(const OutlinerRows& one, const OutlinerRows& other);

}  // namespace studio
