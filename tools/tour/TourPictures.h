#pragma once

#include <QString>

namespace studio {

/// Pictures that the tour puts on a material, painted for it.
struct TourPictures {
    QString tiles;         ///< coloured, with grooves
    QString leaves;        ///< with holes
    QString grooves;       ///< heights that belong to the tiles
    QString polish;        ///< where a surface shines
    QString surroundings;  ///< the sky and the ground around, latitude by longitude
    QString fade;          ///< opacity
};

/// Paints them into a folder. Errors: FileFailed.
[[nodiscard]] TourPictures PaintTourPictures(const QString& folder);

}  // namespace studio
