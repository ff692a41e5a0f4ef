#include "studio/raytrace/PovRayNormal.h"

#include "studio/raytrace/PovRayCatalogue.h"
#include "studio/raytrace/Quoting.h"

#include <algorithm>

namespace studio {
namespace {

/// Of a normal pattern of areas, in its own units: an edge as thin as the default is hardly seen.
constexpr float kBlockEdge = 0.12F;

/// POV-Ray measures heights in pixels of the image.
void WriteBumps(TextStream& out, const SurfaceDraft& surface, const RaytraceImage& heights)
{
    const int pixels = std::max(heights.size.width(), heights.size.height());
    out << "  " << surface.placement.Mapping() << "bump_map { " << heights.kind << ' '
        << PovRayString(heights.path) << " gamma 1.0 interpolate 2 bump_size "
        << kBumpHeight * static_cast<float>(pixels) << " }";
    WritePlacement(out, surface.placement);
}

void WriteNormalPattern(TextStream& out, const SurfaceDraft& surface, const PovRayPattern& pattern)
{
    const PatternAmounts amounts = NormalPatternOf(surface.material.RayTrace);
    out << pattern.text << ' ' << pattern.strength * amounts.depth << " no_bump_scale frequency "
        << pattern.frequency * amounts.frequency;
    if (pattern.blocks) {
        out << " accuracy " << kBlockEdge;
    }
    if (amounts.turbulence > 0.0F) {
        out << " turbulence " << amounts.turbulence;
    }
    WritePatternSpace(out, surface.item, pattern.scale * amounts.size, pattern.place);
}

}  // namespace

bool DeclareNormal(TextStream& out, const SurfaceDraft& surface, RaytraceImages& store)
{
    const PovRayPattern* pattern = FindNormalPattern(surface.material.RayTrace.NormalPattern);
    const TexturePointer heights = pattern == nullptr ? HeightsOf(surface.images) : nullptr;
    if (pattern == nullptr && heights == nullptr) {
        return false;
    }
    out << "#declare " << surface.name << "_normal = normal { ";
    if (pattern != nullptr) {
        WriteNormalPattern(out, surface, *pattern);
    } else {
        WriteBumps(out, surface, store.ImageOf(*heights));
    }
    out << " }\n";
    return true;
}

}  // namespace studio
