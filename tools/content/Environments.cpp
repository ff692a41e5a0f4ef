#include "Environments.h"

#include <array>

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
        const Paint ground =
            Ramp(kGround, -up * 1.6F + 0.12F) *
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

Paint Sunset(Point p)
{
    constexpr std::array kDusk{Hex(0xFFF0B8), Hex(0xFFC766), Hex(0xFB8C43), Hex(0xD9586A),
                               Hex(0x8A4B8C), Hex(0x453A7A), Hex(0x262555)};
    constexpr std::array kSea{Hex(0xE79A58), Hex(0x9A5A52), Hex(0x4E3548), Hex(0x241C2E),
                              Hex(0x120F1A)};
    const float up = 1.0F - 2.0F * p.v;
    const float du = 2.0F * (p.u - 0.42F - std::round(p.u - 0.42F));
    const float sun = std::hypot(du, p.v - 0.455F);
    const float towardsSun = std::exp(-du * du * 2.2F);
    Paint sky = Ramp(kDusk, std::pow(std::max(0.0F, up), 0.62F) * (1.25F - 0.35F * towardsSun));
    const Point q = Warped(p, {4, 12}, 0.02F, 9100, 3);
    const float streaks = Smooth(0.02F, 0.40F, Fractal(q, {3, 26}, 5, 9110)) *
                          Smooth(0.02F, 0.10F, up) * Smooth(0.75F, 0.35F, up);
    const Paint lit = Mix(Hex(0x7A3F72), Hex(0xFF9E5E), towardsSun);
    sky = Mix(sky, lit, 0.75F * streaks);
    sky = Mix(sky, Hex(0xFFE9A6), 0.85F * Smooth(0.30F, 0.0F, sun));
    sky = Mix(sky, Hex(0xFFFFF2), Smooth(0.050F, 0.040F, sun));
    const float waves = 0.5F + 0.5F * Fractal(p, {34, 130}, 3, 9120);
    const float path =
        std::exp(-du * du * 55.0F) * Smooth(0.16F, 0.75F, waves + 0.2F * (1.0F + up));
    Paint sea = Ramp(kSea, -up * 1.15F + 0.10F * (waves - 0.5F)) * (0.70F + 0.42F * towardsSun);
    sea = Mix(sea, Hex(0xFFC873), 0.85F * path * Smooth(-0.85F, -0.05F, up));
    return Mix(sky, sea, Smooth(0.004F, -0.004F, up));
}

}  // namespace media
