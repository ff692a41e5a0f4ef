#include "PovRayCoverage.h"

#include "SurfaceCoverage.h"

namespace studio {
namespace {

std::string ImageCoverageText(const SurfaceDraft& surface)
{
    const LayerSet& set = surface.images.set;
    std::string text = set.Has(Layer::Alpha) ? LuminanceText(surface.name, Layer::Alpha) : "1";
    if (set.primaryAlpha == PrimaryAlpha::Opacity) {
        text += "*(1-" + ChannelText(surface.name, Layer::Primary, "transmit") + ')';
    } else if (set.primaryAlpha == PrimaryAlpha::InverseOpacity) {
        text += '*' + ChannelText(surface.name, Layer::Primary, "transmit");
    }
    return text;
}

std::string TestedText(const SurfaceDraft& surface, const std::string& coverage)
{
    const AlphaTest test = AlphaTestOf(surface.material);
    if (test.comparison.empty()) {
        return coverage;
    }
    const std::string difference = "floor(" + NumberText(255.0F * surface.terms.opacity) + "*(" +
                                   coverage + ")+0.5)-" + std::to_string(test.reference);
    // select(a, b, c, d): b, c or d as a is below, at or above 0.
    const KeptSides kept = KeptBy(test.comparison);
    const auto side = [&](bool keep) { return keep ? ',' + coverage : std::string(",0"); };
    return "select(" + difference + side(kept.below) + side(kept.at) + side(kept.above) + ')';
}

}  // namespace

std::string CoverageText(const SurfaceDraft& surface)
{
    return surface.images.set.ChangesOpacity() ? TestedText(surface, ImageCoverageText(surface))
                                               : std::string();
}

}  // namespace studio
