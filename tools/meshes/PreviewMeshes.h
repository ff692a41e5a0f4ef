#pragma once

#include "SurfaceMesh.h"

#include <array>
#include <string_view>

namespace media {

struct PreviewShape {
    std::string_view fileName;
    SurfaceMesh (*make)();
};

SurfaceMesh Cube();      ///< each side one picture, edges slightly rounded
SurfaceMesh Cylinder();  ///< one picture around it, one on each cap; rims slightly rounded
SurfaceMesh Sphere();    ///< one picture around it, from pole to pole
SurfaceMesh Torus();     ///< two pictures around it, one around the tube; tilted to the viewer
SurfaceMesh Cone();      ///< one picture around it, one on the base; rim slightly rounded

/// Shapes for looking at a material: about as large as a ball of radius 1 around the origin. They
/// are looked at from +z; where the picture around a shape meets itself is at its back.
inline constexpr std::array kPreviewShapes{
    PreviewShape{"previewcube.x", &Cube},     PreviewShape{"previewcylinder.x", &Cylinder},
    PreviewShape{"previewsphere.x", &Sphere}, PreviewShape{"previewtorus.x", &Torus},
    PreviewShape{"previewcone.x", &Cone},
};

}  // namespace media
