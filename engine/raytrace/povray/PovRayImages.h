#pragma once

#include "SurfaceImages.h"
#include "TextStream.h"
#include "WrapCoordinates.h"

#include <string>

namespace studio {

/// How the images of an item lie on it, in POV-Ray's words.
struct PovRayPlacement {
    WrapTerms wrap;

    /// `uv_mapping ` where the mesh itself says where an image lies.
    [[nodiscard]] std::string_view Mapping() const;
    [[nodiscard]] bool ByMesh() const;
};

[[nodiscard]] PovRayPlacement PlacementOf(const FrameItem& item,
                                          const CorvexDB::udtMaterial& material);

/// Flips, crop and tiles, then the way around the shape.
void WritePlacement(TextStream& out, const PovRayPlacement& placement);

/// Declares the layer's image as a function of the place on the surface, named by `NameOf`, with
/// the members red, green, blue and transmit.
void DeclareImage(TextStream& out, const std::string& surface, Layer layer,
                  const RaytraceImage& image, const PovRayPlacement& placement);
/// `surface_layer(x, y, z).channel`
[[nodiscard]] std::string ChannelText(const std::string& surface, Layer layer,
                                      std::string_view channel);
[[nodiscard]] std::string LuminanceText(const std::string& surface, Layer layer);

/// A number for inside of an expression.
[[nodiscard]] std::string NumberText(float number);

}  // namespace studio
