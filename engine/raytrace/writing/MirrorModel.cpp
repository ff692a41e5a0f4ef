#include "MirrorModel.h"

#include <algorithm>
#include <cmath>

namespace studio {
namespace {

/// From the slider's reflection to that of a surface looked at straight on: a lacquer at position 1
/// mirrors a fiftieth there, a full mirror all.
constexpr float kGloss = 1.7F;
constexpr float kSkyFalloff = 3.0F;

}  // namespace

Mirror MirrorOf(const RaytraceAmounts& amounts, const Rgb& body, bool surrounded)
{
    Mirror mirror;
    const float reflection = amounts.reflection;
    if (surrounded) {
        mirror.front = std::max(kReflectionAtFront, reflection);
        mirror.edge = 1.0F;
        mirror.falloff = kReflectionFalloff;
    } else {
        mirror.front = amounts.metallic ? reflection : std::pow(reflection, kGloss);
        mirror.edge = reflection;
        mirror.falloff = kSkyFalloff;
    }
    const float lightest = std::max({body.red, body.green, body.blue});
    if (amounts.metallic && lightest > 0.0F) {
        // The root: half way between the body's colour and that of the things mirrored.
        mirror.tint = {std::sqrt(body.red / lightest), std::sqrt(body.green / lightest),
                       std::sqrt(body.blue / lightest)};
        mirror.highlightTint =
            1.0F - std::min({mirror.tint.red, mirror.tint.green, mirror.tint.blue});
    }
    return mirror;
}

}  // namespace studio
