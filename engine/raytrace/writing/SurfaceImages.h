#pragma once

#include "Frame.h"
#include "RaytraceImages.h"
#include "SurfaceLayers.h"

#include <array>

namespace studio {

/// The layers of one item as files that the raytracer can read.
struct SurfaceImages {
    LayerSet set;
    std::array<RaytraceImage, kLayerCount> images;  ///< of the layers that are there
    std::array<TexturePointer, kLayerCount> textures;

    [[nodiscard]] const RaytraceImage& Image(Layer layer) const
    {
        return images[static_cast<std::size_t>(layer)];
    }
    [[nodiscard]] const TexturePointer& Pixels(Layer layer) const
    {
        return textures[static_cast<std::size_t>(layer)];
    }
};

/// The item's material, or the default one.
[[nodiscard]] const CorvexDB::udtMaterial& MaterialOf(const FrameItem& item);

/// What a plug-in drew stands in for a file, as it does in the viewport. No files are made.
[[nodiscard]] SurfaceImages SurfacePixelsOf(const FrameItem& item,
                                            const CorvexDB::udtMaterial& material,
                                            const RaytraceImages& images);
/// The same with files. Errors: FileFailed.
[[nodiscard]] SurfaceImages SurfaceImagesOf(const FrameItem& item,
                                            const CorvexDB::udtMaterial& material,
                                            RaytraceImages& images);

struct SurfaceHeights {
    TexturePointer shades;  ///< of grey; square, for POV-Ray measures slopes in pixels
    float white = 1.0F;     ///< how high white is, in heights of a white bump
};

/// The bump map and, where the primary texture's alpha channel is used so, that on top of it. No
/// shades without either.
[[nodiscard]] SurfaceHeights HeightsOf(const SurfaceImages& images);

}  // namespace studio
