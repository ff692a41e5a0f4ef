#pragma once

#include <CorvexMaterial/Export.h>

class QWidget;

namespace CorvexMaterial {

/// For the panel, and for what a host puts beside it (a dock, a dialog). Its captions that have no
/// letter to press with Alt get one that is free among all that is seen in the window, and keep it
/// while it is; and Return opens what Space opens: buttons, lists to choose from.
CORVEX_EXPORT void GiveKeyboardAccess(QWidget& root);

}  // namespace CorvexMaterial
