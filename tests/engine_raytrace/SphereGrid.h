#pragma once

#include "RaytraceRig.h"

namespace StudioRaytraceTest {

/// Spheres in rows across the line of sight, one for each material: most of a run's time is
/// POV-Ray's start.
struct SphereGrid {
    int columns = 10;
    int cell = 96;  ///< pixels
    float yawDegrees = 0.0F;
    float pitchDegrees = 0.0F;
    std::vector<CorvexDB::udtMaterial> materials;

    [[nodiscard]] studio::RaytraceScene Scene() const;
    [[nodiscard]] QRect Cell(std::size_t i) const;

private:
    [[nodiscard]] int Rows() const;
};

}  // namespace StudioRaytraceTest
