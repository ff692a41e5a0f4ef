#include "PovRayFinish.h"

namespace studio {
namespace {

void WriteBody(TextStream& out, const SurfaceDraft& surface, FinishParts parts, float share)
{
    const SurfaceTerms& terms = surface.terms;
    const float diffuse =
        parts.shines ? terms.diffuse : terms.diffuse / (1.0F - terms.highlightCost);
    // Half of the light from the sky is the same everywhere; the lights of the scene are the rest.
    out << "ambient 0 emission " << share * (terms.emission + diffuse * kSkyIntensity / 2.0F)
        << " diffuse " << share * diffuse << " brilliance " << surface.amounts.brilliance;
}

void WriteColour(TextStream& out, const Rgb& colour, float factor)
{
    out << "rgb <" << factor * colour.red << ',' << factor * colour.green << ','
        << factor * colour.blue << '>';
}

void WriteMirror(TextStream& out, const Mirror& mirror, MirrorSide side)
{
    out << " conserve_energy reflection { ";
    WriteColour(out, mirror.tint, mirror.front);
    if (side == MirrorSide::Outside) {
        out << ", rgb " << mirror.edge << " falloff " << mirror.falloff;
    }
    out << " }";
}

}  // namespace

void WriteFinish(TextStream& out, const SurfaceDraft& surface, FinishParts parts)
{
    const RaytraceAmounts& amounts = surface.amounts;
    const Mirror& mirror = surface.mirror;
    const float mirrored = parts.mirror == MirrorSide::None ? 0.0F : mirror.front;
    out << "finish { ";
    WriteBody(out, surface, parts, 1.0F - mirrored);
    if (parts.shines && surface.terms.highlight > 0.0F) {
        out << " specular " << surface.terms.highlight / kKeyLight.intensity << " roughness "
            << 1.0F / amounts.shininess;
        if (mirror.highlightTint > 0.0F) {
            out << " metallic " << mirror.highlightTint;
        }
    }
    if (mirrored > 0.0F) {
        WriteMirror(out, mirror, parts.mirror);
    }
    if (amounts.iridescence > 0.0F) {
        out << " irid { " << amounts.iridescence << " thickness " << amounts.filmThickness
            << " turbulence " << amounts.filmTurbulence << " }";
    }
    out << " }";
}

}  // namespace studio
