#pragma once

#include <QIcon>

#include <functional>

namespace CorvexMaterial {

/// An icon that is drawn anew at every size, sharp on any screen. The drawing gets a painter whose
/// units are `units` to the icon's smaller side, smoothed edges, no pen and no brush.
[[nodiscard]] QIcon DrawnIcon(qreal units, std::function<void(QPainter&, QIcon::Mode)> draw);

}  // namespace CorvexMaterial
