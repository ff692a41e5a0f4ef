#pragma once

#include <CorvexMaterial/RaytraceAttributes.h>

#include <string>

namespace studio {

/// One `Name=value` per attribute of the record, separated by ";", in the record's order. Numbers
/// have a dot as their decimal sign and read back to the same value; a pattern colour is four of
/// them separated by ",".
[[nodiscard]] std::string AttributeText(const CorvexDB::cdtRayTraceMaterialAttributes& attributes);

}  // namespace studio
