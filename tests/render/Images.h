#pragma once

#include "Testing.h"

namespace drawing {

/// Writes image files into a folder that vanishes with the process.
std::string WriteImage(const QString& name, const QImage& image);

/// Every pixel from its place: x to the right, y down, 0 to 1.
QImage ImageOf(int side, const std::function<QColor(double x, double y)>& colourAt);
/// Top: red, green. Bottom: blue, white.
QImage FourColours();
QImage Plain(QColor colour);

}  // namespace drawing
