#pragma once

#include "tests/studio_raytrace/RibReader.h"

namespace StudioRaytraceTest {

/// Adds the faults of what was read: unknown requests, shaders and parameters, lists that do not
/// agree, names that cannot be found, blocks left open.
void CheckFacts(RibFile& file);

}  // namespace StudioRaytraceTest
