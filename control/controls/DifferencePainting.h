#pragma once

#include <QColor>

#include <functional>
#include <vector>

class QWidget;

namespace CorvexMaterial {

/// Paints a control as one of several values. The function paints it as it is.
void PaintDiffering(QWidget& control, const std::vector<QColor>& colours,
                    const std::function<void()>& paintOwn);

}  // namespace CorvexMaterial
