#pragma once

#include <QIcon>

namespace CorvexMaterial {

/// A shaded picture of a preview primitive, sharp at any scale. Codes 0 to 4; any other code gives
/// the outline of an empty object.
QIcon PrimitivePicture(int code);

}  // namespace CorvexMaterial
