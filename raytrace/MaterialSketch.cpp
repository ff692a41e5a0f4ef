#include "raytrace/MaterialSketch.h"

#include "raytrace/SketchLook.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace CorvexMaterial {

namespace {

constexpr float kRadius = 0.82F;
/// Below this side four samples a pixel are quick; above it the pixels are small enough.
constexpr int kSupersampledSide = 300;

const SketchPoint kToEye{0.0F, 0.0F, 1.0F};

struct SketchLight {
    SketchPoint towards;
    float intensity;
};

const SketchLight kKey{{-0.4472F, 0.6099F, 0.6542F}, 0.78F};
const SketchLight kFill{{0.9035F, -0.1643F, 0.3958F}, 0.13F};
constexpr float kSky = 0.12F;

float Smooth(float edge0, float edge1, float value)
{
    const float t = std::clamp((value - edge0) / (edge1 - edge0), 0.0F, 1.0F);
    return t * t * (3.0F - 2.0F * t);
}

/// What stands behind the sphere: a wall that darkens downwards, checked so that glass shows.
SketchColour Background(float x, float y)
{
    const SketchColour wall =
        Mix({0.045F, 0.05F, 0.06F}, {0.16F, 0.175F, 0.2F}, Smooth(-1.0F, 1.0F, y));
    const int parity =
        static_cast<int>(std::floor(x * 4.0F)) + static_cast<int>(std::floor(y * 4.0F));
    return (parity & 1) != 0 ? wall : wall * 1.35F;
}

/// What a mirror sees: a bright room with one window at the key light.
SketchColour Room(SketchPoint direction)
{
    const SketchColour ground{0.10F, 0.085F, 0.075F};
    const SketchColour horizon{0.55F, 0.56F, 0.58F};
    const SketchColour ceiling{0.16F, 0.2F, 0.28F};
    SketchColour light = direction.y < 0.0F
                             ? Mix(horizon * 0.6F, ground, Smooth(0.0F, 0.35F, -direction.y))
                             : Mix(horizon, ceiling, Smooth(0.0F, 0.75F, direction.y));
    const float window = Smooth(0.86F, 0.93F, Dot(direction, kKey.towards));
    return Mix(light, {1.6F, 1.6F, 1.55F}, window);
}

class Sphere {
public:
    explicit Sphere(const CorvexDB::udtMaterial& material) : m_look(LookOf(material)) {}

    /// x and y on the unit sphere's disc.
    [[nodiscard]] SketchColour At(float x, float y) const
    {
        const SketchPoint at{x, y, std::sqrt(std::max(0.0F, 1.0F - x * x - y * y))};
        const SketchPoint normal = Bumped(at);
        const SketchColour colour = Pigment(at);
        const SketchColour body = Body(colour, normal);
        const SketchColour behind = Behind(at, normal) * colour;
        SketchColour seen = Mix(body, behind, m_look.clearness);
        seen = Mix(seen, Mirrored(colour, normal), Mirroring(normal));
        return seen + Film(normal) + Highlight(colour, normal);
    }

private:
    [[nodiscard]] SketchColour Pigment(SketchPoint at) const
    {
        if (m_look.pattern == ColorPattern::None) {
            return m_look.colours[0];
        }
        const float value = ColourPatternAt(m_look.pattern, at, m_look.patternSetting);
        if (m_look.pattern == ColorPattern::Checker) {
            return m_look.colours[value > 0.5F ? 1 : 0];
        }
        const float along = std::clamp(value, 0.0F, 1.0F) * 3.0F;
        const auto first = std::min<std::size_t>(2, static_cast<std::size_t>(along));
        return Mix(m_look.colours[first], m_look.colours[first + 1],
                   along - static_cast<float>(first));
    }

    [[nodiscard]] SketchPoint Bumped(SketchPoint at) const
    {
        constexpr float kStep = 0.004F;
        if (m_look.normal == NormalPattern::None || m_look.normalDepth <= 0.0F) {
            return at;
        }
        const auto height = [this](SketchPoint place) {
            return NormalPatternAt(m_look.normal, place, m_look.normalSetting);
        };
        const float here = height(at);
        const SketchPoint slope{height(at + SketchPoint{kStep, 0.0F, 0.0F}) - here,
                                height(at + SketchPoint{0.0F, kStep, 0.0F}) - here,
                                height(at + SketchPoint{0.0F, 0.0F, kStep}) - here};
        // Steep edges tilt a normal so far and no further.
        const float tilt = m_look.normalDepth * m_look.normalSetting.size / kStep;
        const float steepness = Length(slope) * tilt;
        const float limit = steepness > 1.5F ? 1.5F / steepness : 1.0F;
        return Unit(at - slope * (tilt * limit));
    }

    [[nodiscard]] SketchColour Body(SketchColour colour, SketchPoint normal) const
    {
        float light = kSky * 0.5F * (1.0F + normal.y);
        for (const SketchLight& lamp : {kKey, kFill}) {
            const float facing = std::max(0.0F, Dot(normal, lamp.towards));
            light += lamp.intensity * std::pow(facing, m_look.brilliance);
        }
        return colour * (m_look.glow + (1.0F - m_look.glow) * light);
    }

    [[nodiscard]] static SketchColour Behind(SketchPoint at, SketchPoint normal)
    {
        // A ball of glass turns what is behind it upside down.
        const float bend = 1.2F * (1.0F - normal.z) + 0.35F;
        return Background(kRadius * (at.x - normal.x * bend * 1.6F),
                          kRadius * (at.y - normal.y * bend * 1.6F)) *
               2.2F;
    }

    [[nodiscard]] float Mirroring(SketchPoint normal) const
    {
        const float rim = std::pow(1.0F - std::clamp(normal.z, 0.0F, 1.0F), 4.0F);
        const float glassy = m_look.clearness > 0.0F ? 0.6F * rim : 0.25F * rim;
        return m_look.reflection > 0.0F || m_look.clearness > 0.0F
                   ? std::min(1.0F, m_look.reflection + (1.0F - m_look.reflection) * glassy)
                   : 0.0F;
    }

    [[nodiscard]] SketchColour Mirrored(SketchColour colour, SketchPoint normal) const
    {
        const SketchPoint direction = normal * (2.0F * normal.z) - kToEye;
        const SketchColour seen = Room(direction);
        return m_look.metallic ? seen * colour * 1.3F : seen;
    }

    [[nodiscard]] SketchColour Film(SketchPoint normal) const
    {
        if (m_look.iridescence <= 0.0F) {
            return {};
        }
        const float path = (1.0F + 4.0F * m_look.filmThickness) * std::clamp(normal.z, 0.0F, 1.0F);
        const auto wave = [path](float shift) {
            constexpr float kTurn = 2.0F * std::numbers::pi_v<float>;
            return 0.5F + 0.5F * std::cos(kTurn * (path + shift));
        };
        const float strength = 0.6F * m_look.iridescence;
        return SketchColour{wave(0.0F), wave(0.33F), wave(0.67F)} * strength;
    }

    [[nodiscard]] SketchColour Highlight(SketchColour colour, SketchPoint normal) const
    {
        const SketchPoint half = Unit(kKey.towards + kToEye);
        const float shine =
            m_look.highlight * std::pow(std::max(0.0F, Dot(normal, half)), m_look.shininess);
        return m_look.metallic ? colour * (shine * 1.4F) : SketchColour{shine, shine, shine};
    }

    SketchLook m_look;
};

/// The shadow that the ball throws on the wall.
float Shadow(float x, float y)
{
    const float distance = std::hypot(x - 0.10F, y + 0.12F);
    return 1.0F - 0.55F * (1.0F - Smooth(kRadius * 0.8F, kRadius * 1.22F, distance));
}

SketchColour PictureAt(const Sphere& sphere, float x, float y, float pixel)
{
    const float distance = std::hypot(x, y);
    const float cover = std::clamp((kRadius - distance) / pixel + 0.5F, 0.0F, 1.0F);
    const SketchColour wall = Background(x, y) * Shadow(x, y);
    if (cover <= 0.0F) {
        return wall;
    }
    const float inside = std::max(distance / kRadius, 1.0F);
    return Mix(wall, sphere.At(x / kRadius / inside, y / kRadius / inside), cover);
}

std::uint32_t Encoded(float linear)
{
    const float inside = std::clamp(linear, 0.0F, 1.0F);
    const float encoded =
        inside <= 0.0031308F ? inside * 12.92F : 1.055F * std::pow(inside, 1.0F / 2.4F) - 0.055F;
    return static_cast<std::uint32_t>(std::lround(encoded * 255.0F));
}

std::uint32_t PixelOf(SketchColour colour)
{
    return 0xff000000U | Encoded(colour.red) << 16U | Encoded(colour.green) << 8U |
           Encoded(colour.blue);
}

}  // namespace

std::vector<std::uint32_t> SketchMaterial(const CorvexDB::udtMaterial& material, int side,
                                          SketchQuality quality)
{
    const Sphere sphere(material);
    const int samples = quality == SketchQuality::Fine && side <= kSupersampledSide ? 2 : 1;
    const float step = 2.0F / static_cast<float>(side * samples);
    std::vector<std::uint32_t> pixels;
    pixels.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            SketchColour sum;
            for (int i = 0; i < samples * samples; ++i) {
                const int sx = column * samples + i % samples;
                const int sy = row * samples + i / samples;
                sum = sum + PictureAt(sphere, (static_cast<float>(sx) + 0.5F) * step - 1.0F,
                                      1.0F - (static_cast<float>(sy) + 0.5F) * step, step);
            }
            pixels.push_back(PixelOf(sum * (1.0F / static_cast<float>(samples * samples))));
        }
    }
    return pixels;
}

}  // namespace CorvexMaterial
