#pragma once

#include <CorvexMaterial/MaterialRecord.h>

namespace CorvexMaterial {

/// The material as a real-time view can show it, which knows nothing of raytrace attributes: a
/// predefined material by the colour and clearness of its row, a colour pattern by the mean of its
/// colours.
[[nodiscard]] CorvexDB::udtMaterial StandInFor(const CorvexDB::udtMaterial& material);

}  // namespace CorvexMaterial
