#include "SurfaceDraft.h"

#include "PovRayMesh.h"
#include <CorvexMaterial/Looks.h>

#include <algorithm>

namespace studio {
namespace {

Rgb MeanImageColour(const QImage& image)
{
    const QColor mean(
        image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0));
    return LightOf(CorvexMaterial::MakeColour({mean.red(), mean.green(), mean.blue()}));
}

/// Of base times images or pattern.
Rgb MiddleOf(const SurfaceDraft& surface)
{
    const Rgb& base = surface.terms.base;
    if (surface.colours == nullptr && surface.Shows(Layer::Primary)) {
        return base * MeanImageColour(surface.images.Pixels(Layer::Primary)->image);
    }
    return base * CorvexMaterial::MeanPatternLight(surface.material.RayTrace);
}

}  // namespace

SurfaceDraft::SurfaceDraft(std::string surfaceName, const FrameItem& surfaceItem,
                           RaytraceImages& store)
    : name(std::move(surfaceName)), item(surfaceItem), material(MaterialOf(surfaceItem)),
      images(SurfaceImagesOf(item, material, store)), placement(PlacementOf(item, material)),
      terms(images.set.ChangesHighlight() ? HighlightMappedTermsOf(material)
                                          : SurfaceTermsOf(material)),
      amounts(AmountsOf(material.RayTrace)),
      colours(CorvexMaterial::FindColourPattern(material.RayTrace.ColorPattern)),
      mirror(MirrorOf(amounts, amounts.metallic ? MiddleOf(*this) : terms.base,
                      images.set.Has(Layer::Environment)))
{
}

void WritePatternSpace(TextStream& out, const FrameItem& item, float scale,
                       CorvexMaterial::Vector3<float> place)
{
    const Bounds& box = item.mesh->bounds;
    const QVector3D size = box.maximum - box.minimum;
    const float half = std::max({size.x(), size.y(), size.z(), 1.0e-6F}) / 2.0F;
    out << " scale " << scale << " translate <" << QVector3D(place.x, place.y, place.z)
        << "> scale " << half << " translate <" << PovRayPoint(box.Centre()) << '>';
}

}  // namespace studio
