#pragma once

#include "MaterialModel.h"
#include "MirrorModel.h"
#include "PovRayImages.h"
#include "SliderMeaning.h"
#include <CorvexMaterial/Looks.h>

namespace studio {

/// One surface on its way into a POV-Ray scene: what is known of it once its images are found.
/// Everything that is declared for it begins with its name.
struct SurfaceDraft {
    SurfaceDraft(std::string surfaceName, const FrameItem& surfaceItem, RaytraceImages& store);

    std::string name;
    const FrameItem& item;
    const CorvexDB::udtMaterial& material;
    SurfaceImages images;
    PovRayPlacement placement;
    SurfaceTerms terms;
    RaytraceAmounts amounts;
    const CorvexMaterial::PovRayPattern*
        colours;  ///< stand in for primary and overlay texture; may be null
    Mirror mirror;

    /// Whether the layer's image is one of the colours of this surface.
    [[nodiscard]] bool Shows(Layer layer) const { return !colours && images.set.Has(layer); }
};

/// ` scale ... translate ...` from a pattern's own space to that of the item: around the middle of
/// the shape's box, half its longest side is 1.
void WritePatternSpace(TextStream& out, const FrameItem& item, float scale,
                       CorvexMaterial::Vector3<float> place = {});

}  // namespace studio
