#pragma once

#include <CorvexMaterial/Status.h>

#include <QString>

namespace studio {

/// A status of the control in words for a person.
[[nodiscard]] QString TextOf(CorvexMaterial::Status status);

}  // namespace studio
