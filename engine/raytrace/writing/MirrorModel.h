#pragma once

// What a surface mirrors, for every raytracer: how much, in which colour, and the sky where no
// image of the surroundings is given. With R the reflection (0 to 1) and n.v the cosine between
// normal and eye,
//
//     mirrored = front + (edge - front) * (1 - n.v)^falloff
//
// with front = max(kReflectionAtFront, R), edge = 1 and falloff = kReflectionFalloff before an
// image, as in the viewport, and front = R^kGloss (R for metals), edge = R and falloff 3 before the
// sky.

#include "MaterialModel.h"
#include "SliderMeaning.h"

#include <array>

namespace studio {

struct Mirror {
    float front = 0.0F;  ///< 0 to 1, looked at straight on; what the body loses
    float edge = 0.0F;   ///< 0 to 1, towards the outline
    float falloff = 1.0F;
    /// Of what is mirrored straight on. A metal has its hue, in full brightness however dark its
    /// body is; anything else mirrors without a colour.
    Rgb tint{1.0F, 1.0F, 1.0F};
    float highlightTint = 0.0F;  ///< how far the highlight takes the body's colour, 0 to 1
};

/// The body's colour is that of the middle of its images or patterns.
[[nodiscard]] Mirror MirrorOf(const RaytraceAmounts& amounts, const Rgb& body, bool surrounded);

struct SkyBand {
    float height = 0.0F;  ///< 0 straight down, 1 straight up
    float light = 0.0F;
};
inline constexpr std::array kSky{SkyBand{0.0F, 0.02F}, SkyBand{0.45F, 0.1F}, SkyBand{0.55F, 0.25F},
                                 SkyBand{1.0F, 0.5F}};

}  // namespace studio
