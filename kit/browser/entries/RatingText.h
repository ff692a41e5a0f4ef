#pragma once

#include <QString>

namespace studio {

/// So many stars.
[[nodiscard]] inline QString RatingText(int rating)
{
    return QString(rating, QChar(0x2605));
}

}  // namespace studio
