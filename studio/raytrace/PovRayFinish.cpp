#include "studio/raytrace/PovRayFinish.h"

#include <algorithm>

namespace studio {
namespace {

float MirrorAmount(const SurfaceDraft& surface)
{
    const float reflection = surface.amounts.reflection;
    return surface.images.set.Has(Layer::Environment) ? std::max(kReflectionAtFront, reflection)
                                                      : reflection;
}

void WriteBody(TextStream& out, const SurfaceDraft& surface, FinishParts parts, float share)
{
    const SurfaceTerms& terms = surface.terms;
    const float diffuse =
        parts.shines ? terms.diffuse : terms.diffuse / (1.0F - terms.highlightCost);
    // Half of the light from the sky is the same everywhere; the lights of the scene are the rest.
    out << "ambient 0 emission " << share * (terms.emission + diffuse * kSkyIntensity / 2.0F)
        << " diffuse " << share * diffuse << " brilliance " << surface.amounts.brilliance;
}

void WriteMirror(TextStream& out, const SurfaceDraft& surface, float mirrored)
{
    out << " reflection { " << mirrored;
    if (surface.images.set.Has(Layer::Environment)) {
        out << ", 1 falloff " << kReflectionFalloff;
    }
    out << (surface.amounts.metallic ? " metallic }" : " }");
}

}  // namespace

void WriteFinish(TextStream& out, const SurfaceDraft& surface, FinishParts parts)
{
    const RaytraceAmounts& amounts = surface.amounts;
    const float mirrored = parts.mirrors ? MirrorAmount(surface) : 0.0F;
    out << "finish { ";
    WriteBody(out, surface, parts, 1.0F - mirrored);
    if (parts.shines && surface.terms.highlight > 0.0F) {
        out << " specular " << surface.terms.highlight / kKeyLight.intensity << " roughness "
            << 1.0F / amounts.shininess << (amounts.metallic ? " metallic" : "");
    }
    if (mirrored > 0.0F) {
        WriteMirror(out, surface, mirrored);
    }
    if (amounts.iridescence > 0.0F) {
        out << " irid { " << amounts.iridescence << " thickness " << amounts.filmThickness
            << " turbulence " << amounts.filmTurbulence << " }";
    }
    out << " }";
}

}  // namespace studio
