#pragma once

#include <QAccessible>

namespace CorvexMaterial {

/// What a widget that is drawn by itself is to a screen reader. Once per widget, in its constructor.
void SetAccessibleRole(QWidget& widget, QAccessible::Role role);

}  // namespace CorvexMaterial
