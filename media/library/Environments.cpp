#include "media/library/Environments.h"

namespace media {
namespace {

/// A lamp with a soft edge: how bright it is at a point, 0 to 1. Longitude wraps around.
struct Lamp {
    Point centre;
    Point half;
    float softness;
    float corner;
};

float Light(Point p, const Lamp& lamp)
{
    const float du = p.u - lamp.centre.u - std::round(p.u - lamp.centre.u);
    const float edge =
        RoundedBox(2.0F * du, p.v - lamp.centre.v, 2.0F * lamp.half.u, lamp.half.v, lamp.corner);
    return Smooth(lamp.softness, -lamp.softness, edge);
}

}  // namespace

Paint StudioLights(Point p)
{
    const float up = 1.0F - p.v;
    Paint colour = Mix(Hex(0x17181A), Hex(0x3E4247), Smooth(0.42F, 0.95F, up));
    colour = Mix(colour, Hex(0x6B6863), Smooth(0.50F, 0.40F, up) * Smooth(0.0F, 0.45F, up));
    colour = Mix(colour, Hex(0x0C0C0D), 0.85F * Smooth(0.30F, 0.0F, up));
    const float key = Light(p, {{0.37F, 0.30F}, {0.075F, 0.13F}, 0.012F, 0.02F});
    const float strip = Light(p, {{0.68F, 0.38F}, {0.018F, 0.22F}, 0.010F, 0.015F});
    const float fill = Light(p, {{0.92F, 0.36F}, {0.09F, 0.10F}, 0.03F, 0.03F});
    const float top = Light(p, {{0.5F, 0.02F}, {0.6F, 0.055F}, 0.03F, 0.0F});
    const float glow = Light(p, {{0.37F, 0.30F}, {0.12F, 0.20F}, 0.16F, 0.1F});
    colour = Mix(colour, Hex(0x8C8A86), 0.45F * glow);
    colour = Mix(colour, Hex(0xFFFFFF), key);
    colour = Mix(colour, Hex(0xEAF1FF), strip);
    colour = Mix(colour, Hex(0xC9C2B6), 0.85F * fill);
    return Mix(colour, Hex(0xF4F6F8), 0.9F * top);
}

Paint OpenSky(Point p)
{
    constexpr std::array kSky{Hex(0xDCE9F2), Hex(0x9FC6E8), Hex(0x5B9BDA), Hex(0x2C6BB8),
                              Hex(0x1C4D96)};
    constexpr std::array kGround{Hex(0x8F8C70), Hex(0x7A7A52), Hex(0x646640), Hex(0x4C4A33)};
    const float up = 1.0F - 2.0F * p.v;
    const float hills = 0.035F + 0.030F * Noise({p.u, 0.3F}, {7, 5}, 9000) +
                        0.012F * Noise({p.u, 0.6F}, {23, 5}, 9001);
    const float far = hills + 0.02F + 0.02F * Noise({p.u, 0.1F}, {5, 5}, 9002);
    const Paint nearBy = [&] {
        const Paint ground = Ramp(kGround, -up * 1.6F + 0.12F) *
                             (1.0F + 0.16F * Fractal(p, {40, 60}, 3, 9010) * Smooth(0.1F, -0.5F, up));
        return Mix(ground, Hex(0x4F6A55), Smooth(-0.05F, 0.02F, up));
    }();
    Paint sky = Ramp(kSky, std::sqrt(std::max(0.0F, up)) * 1.02F - 0.05F);
    // Clouds are higher and wider towards the zenith.
    const Point q = Warped({p.u, p.v * 1.0F}, {5, 9}, 0.03F, 9020, 4);
    const float density = Fractal(q, {6, 16}, 6, 9030) + 0.25F * Noise(q, {3, 4}, 9040);
    const float band = Smooth(0.03F, 0.16F, up) * Smooth(0.85F, 0.45F, up);
    const float cloud = Smooth(0.02F, 0.36F, density) * band;
    const float shade = Smooth(0.1F, 0.6F, density);
    sky = Mix(sky, Mix(Hex(0xFFFFFF), Hex(0xC4CEDA), shade * 0.8F), 0.92F * cloud);
    const float du = 2.0F * (p.u - 0.36F);
    const float sun = std::hypot(du, p.v - 0.27F);
    sky = Mix(sky, Hex(0xFFF6DE), 0.75F * Smooth(0.24F, 0.0F, sun));
    sky = Mix(sky, Hex(0xFFFFFF), Smooth(0.036F, 0.026F, sun));
    sky = Mix(sky, Hex(0x7F9DB2), Smooth(far + 0.004F, far - 0.004F, up));
    return Mix(sky, nearBy, Smooth(hills + 0.004F, hills - 0.004F, up));
}

Paint SunsetRoom(Point p)
{
    constexpr std::array kDusk{Hex(0xFFE9A8), Hex(0xFFB85A), Hex(0xF07A3C), Hex(0xB4506A),
                               Hex(0x5A4A86)};
    const float up = 1.0F - p.v;
    // Ceiling, walls and floor.
    Paint colour = Mix(Hex(0x4A2E20), Hex(0x6B4630), Smooth(0.45F, 0.75F, up));
    colour = Mix(colour, Hex(0x7B5A40), Smooth(0.74F, 0.80F, up));
    const float boards = 0.5F + 0.5F * Wave(p.u, 40.0F);
    const Paint floor = Mix(Hex(0x2A170D), Hex(0x5A3118), 0.35F + 0.3F * boards);
    colour = Mix(colour, floor, Smooth(0.335F, 0.325F, up));
    // Four tall windows look at the evening sky.
    for (int window = 0; window < 4; ++window) {
        const float centre = 0.24F + 0.115F * static_cast<float>(window);
        const Lamp frame{{centre, 0.43F}, {0.043F, 0.17F}, 0.006F, 0.015F};
        const float pane = Light(p, frame);
        const float du = p.u - centre;
        const float bar = std::max(Smooth(0.0045F, 0.0025F, std::abs(du)),
                                   Smooth(0.007F, 0.004F, std::abs(p.v - 0.40F)));
        const float height = (0.60F - p.v) / 0.34F;
        Paint sky = Ramp(kDusk, height);
        const float sun = std::hypot(2.0F * (p.u - 0.385F), p.v - 0.505F);
        sky = Mix(sky, Hex(0xFFFBE8), Smooth(0.085F, 0.02F, sun));
        const float roofs = 0.55F + 0.018F * Noise({p.u, 0.5F}, {30, 4}, 9100);
        sky = Mix(sky, Hex(0x3A1E22), Smooth(roofs, roofs + 0.008F, p.v));
        colour = Mix(colour, Mix(sky, Hex(0x2B1A12), 0.9F * bar), pane);
        const float glow = Light(p, {{centre, 0.45F}, {0.05F, 0.20F}, 0.13F, 0.1F});
        colour = Mix(colour, Hex(0xFFB060), 0.20F * glow * (1.0F - pane));
        const float pool = Light(p, {{centre + 0.01F, 0.79F}, {0.05F, 0.07F}, 0.03F, 0.02F});
        colour = Mix(colour, Hex(0xF39A4A), 0.60F * pool);
    }
    const float lamp = Light(p, {{0.86F, 0.40F}, {0.022F, 0.04F}, 0.02F, 0.02F});
    const float halo = Light(p, {{0.86F, 0.40F}, {0.05F, 0.10F}, 0.12F, 0.1F});
    colour = Mix(colour, Hex(0xE09A5A), 0.45F * halo);
    return Mix(colour, Hex(0xFFF0CC), lamp);
}

}  // namespace media
