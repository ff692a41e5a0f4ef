#include "MarblePlugin.h"

#include "Shading.h"

namespace {

using namespace patterns;
using CorvexPlugin::ParameterKind;
using CorvexPlugin::Relief;

enum Style { Veined, Clouded, Breccia };

// In the order of the parameters.
struct Values {
    Values(const std::vector<float>& values, float pixelSize)
        : pixel(pixelSize), style(static_cast<int>(values[0])), scale(static_cast<int>(values[1])),
          turbulence(values[2]), sharpness(values[3] / 100.0F),
          stone(CorvexPlugin::ColourOf(values[4])), cloud(CorvexPlugin::ColourOf(values[5])),
          vein(CorvexPlugin::ColourOf(values[6])), polished(values[7] != 0.0F)
    {
    }

    float pixel;  // of the texture
    int style, scale;
    float turbulence, sharpness;
    Colour stone, cloud, vein;
    bool polished;
};

struct Warped {
    float u = 0.0F;
    float v = 0.0F;
};

// Pushed about by noise that repeats with the texture, so the result repeats too.
Warped Warp(const Values& values, float u, float v)
{
    const Periodic period{values.scale, values.scale};
    const float strength = values.turbulence * 0.22F / static_cast<float>(values.scale);
    return {u + strength * 2.0F * Fractal(u, v, {period, 3, 101}, values.pixel),
            v + strength * 2.0F * Fractal(u, v, {period, 3, 111}, values.pixel)};
}

// 1 on the lines where the noise is 0, falling off to both sides.
float Vein(float noise, float width)
{
    const float distance = std::abs(noise) / width;
    return 1.0F / (1.0F + distance * distance * 4.0F);
}

Colour VeinedColour(const Values& values, const Warped& at)
{
    const int scale = values.scale;
    const float wide = Mix(0.16F, 0.03F, values.sharpness);
    const float presence =
        Smooth(-0.25F, 0.3F, Fractal(at.u, at.v, {{scale, scale}, 2, 121}, values.pixel));
    const float large = Vein(Fractal(at.u, at.v, {{scale, scale * 2}, 4, 131}, values.pixel), wide);
    const float small =
        Vein(Fractal(at.u, at.v, {{scale * 3, scale * 2}, 3, 141}, values.pixel), wide * 0.7F);
    const float soft =
        Smooth(-0.4F, 0.6F, Fractal(at.u, at.v, {{scale * 2, scale}, 3, 151}, values.pixel));
    Colour colour = Mix(values.stone, values.cloud, soft * 0.55F);
    colour = Mix(colour, values.vein, small * 0.35F * presence);
    return Mix(colour, values.vein, large * (0.25F + 0.65F * presence));
}

Colour CloudedColour(const Values& values, const Warped& at)
{
    const int scale = values.scale;
    const float edge = Mix(0.5F, 0.12F, values.sharpness);
    const float broad = Fractal(at.u, at.v, {{scale, scale}, 6, 161}, values.pixel);
    const float fine = Fractal(at.u, at.v, {{scale * 3, scale * 3}, 4, 171}, values.pixel);
    const Colour colour = Mix(values.stone, values.cloud, Smooth(-edge, edge, broad));
    return Mix(colour, values.vein, 0.6F * Smooth(0.1F, 0.1F + edge, fine - broad * 0.5F));
}

Colour BrecciaColour(const Values& values, const Warped& at)
{
    const int cells = values.scale * 3;
    const Cell cell = CellAt(at.u, at.v, {cells, cells}, 181);
    const float joint = Mix(0.12F, 0.03F, values.sharpness);
    const float grain = Fractal(at.u, at.v, {{cells, cells}, 4, 191}, values.pixel);
    Colour colour =
        Mix(values.stone, values.cloud, std::clamp(cell.random + grain * 0.4F, 0.0F, 1.0F));
    colour = Scaled(colour, 0.92F + 0.16F * Fraction(cell.random * 7.0F));
    return Mix(values.vein, colour, Smooth(joint * 0.3F, joint, cell.border + grain * 0.02F));
}

Point PointAt(const Values& values, float u, float v)
{
    const Warped at = Warp(values, u, v);
    Point point;
    switch (values.style) {
    case Clouded:
        point.colour = CloudedColour(values, at);
        break;
    case Breccia:
        point.colour = BrecciaColour(values, at);
        break;
    default:
        point.colour = VeinedColour(values, at);
        break;
    }
    const float crystal = Noise(u * 128.0F, v * 128.0F, {128, 128}, 199);
    point.colour = Scaled(point.colour, 1.0F + crystal * 0.025F);
    point.height = 0.5F + crystal * 0.1F + 0.25F * Fractal(u, v, {{24, 24}, 3, 201}, values.pixel);
    return point;
}

}  // namespace

std::vector<CorvexPlugin::Parameter> MarblePlugin::Parameters() const
{
    return {
        {"Style", ParameterKind::List, 0, 0, 0, {"Veined", "Clouded", "Breccia"}, Veined, 0},
        {"Scale", ParameterKind::Slider, 1, 8, 0, {}, 2, 1},
        {"Turbulence", ParameterKind::Number, 0, 4, 2, {}, 1.6F, 0.2F},
        {"Sharpness", ParameterKind::Slider, 0, 100, 0, {}, 70, 10},
        {"Stone",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.95F, 0.94F, 0.92F}),
         0},
        {"Cloud",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.74F, 0.75F, 0.78F}),
         0},
        {"Vein",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.30F, 0.31F, 0.35F}),
         0},
        {"Polished", ParameterKind::Tick, 0, 0, 0, {}, 1, 0},
    };
}

void MarblePlugin::Generate(const CorvexPlugin::Request& request,
                            CorvexPlugin::Texture& texture) const
{
    const Values values(request.values, 1.0F / static_cast<float>(request.height));
    CorvexPlugin::Fill(request, values.polished ? Relief::None : Relief::Heights, texture,
                       [&](float u, float v) { return PointAt(values, u, v); });
}

#include "moc_MarblePlugin.cpp"
