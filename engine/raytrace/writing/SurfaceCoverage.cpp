#include "SurfaceCoverage.h"

#include "MaterialModel.h"
#include "SurfaceImages.h"

namespace studio {

KeptSides KeptBy(std::string_view comparison)
{
    const bool differs = comparison == "!=";
    return {differs || comparison.substr(0, 1) == "<",
            comparison == "==" || comparison == "<=" || comparison == ">=",
            differs || comparison.substr(0, 1) == ">"};
}

bool IsTestedAway(const FrameItem& item, RaytraceImages& images)
{
    const CorvexDB::udtMaterial& material = MaterialOf(item);
    const AlphaTest test = AlphaTestOf(material);
    if (test.comparison.empty() || SurfacePixelsOf(item, material, images).set.ChangesOpacity()) {
        return false;
    }
    const int alpha = static_cast<int>(SurfaceTermsOf(material).opacity * 255.0F + 0.5F);
    const KeptSides kept = KeptBy(test.comparison);
    const int difference = alpha - test.reference;
    return !(difference < 0 ? kept.below : difference == 0 ? kept.at : kept.above);
}

bool IsSeenThrough(const FrameItem& item, RaytraceImages& images)
{
    const CorvexDB::udtMaterial& material = MaterialOf(item);
    return IsTransparent(material) || SurfacePixelsOf(item, material, images).set.ChangesOpacity();
}

}  // namespace studio
