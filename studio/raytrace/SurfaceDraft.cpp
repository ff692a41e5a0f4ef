#include "studio/raytrace/SurfaceDraft.h"

#include "studio/raytrace/PovRayCatalogue.h"
#include "studio/raytrace/PovRayMesh.h"

#include <algorithm>

namespace studio {

SurfaceDraft::SurfaceDraft(std::string surfaceName, const FrameItem& surfaceItem,
                           RaytraceImages& store)
    : name(std::move(surfaceName)), item(surfaceItem), material(MaterialOf(surfaceItem)),
      images(SurfaceImagesOf(item, material, store)), placement(PlacementOf(item, material)),
      terms(images.set.ChangesHighlight() ? HighlightMappedTermsOf(material)
                                          : SurfaceTermsOf(material)),
      amounts(AmountsOf(material.RayTrace)),
      colours(FindColourPattern(material.RayTrace.ColorPattern))
{
}

void WritePatternSpace(TextStream& out, const FrameItem& item, float scale, const QVector3D& place)
{
    const Bounds& box = item.mesh->bounds;
    const QVector3D size = box.maximum - box.minimum;
    const float half = std::max({size.x(), size.y(), size.z(), 1.0e-6F}) / 2.0F;
    out << " scale " << scale << " translate <" << place << "> scale " << half << " translate <"
        << PovRayPoint(box.Centre()) << '>';
}

}  // namespace studio
