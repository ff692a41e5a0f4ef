#pragma once

class QWidget;

namespace CorvexMaterial {

/// Keeps the wheel from changing a list or slider that the user only scrolls past: inside this
/// panel it reaches them when they have the focus.
void GuardWheel(QWidget& panel);

}  // namespace CorvexMaterial
