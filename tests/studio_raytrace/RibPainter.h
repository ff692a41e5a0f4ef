#pragma once

#include "tests/studio_raytrace/RibReader.h"

#include <QImage>
#include <QString>

namespace StudioRaytraceTest {

/// The picture of a RIB under ambient light alone, as a poor renderer draws it: one sample a pixel,
/// polygons opaque and seen from both sides, images black outside and read without smoothing.
/// Images are looked for in the folder.
[[nodiscard]] QImage PaintRib(const RibFile& file, const QString& folder);

}  // namespace StudioRaytraceTest
