#include "WoodPlugin.h"

#include "Shading.h"

namespace {

using namespace patterns;
using CorvexPlugin::ParameterKind;

constexpr float kTurn = 6.2831853F;
constexpr float kGap = 0.013F;      // half of its width, in boards
constexpr float kMeanTone = 0.45F;  // of a year

enum Cut { Boards, Turned };

// In the order of the parameters.
struct Values {
    Values(const std::vector<float>& values, float pixelSize)
        : pixel(pixelSize), cut(static_cast<int>(values[0])), boards(static_cast<int>(values[1])),
          rings(values[2]), wave(values[3]), early(CorvexPlugin::ColourOf(values[4])),
          late(CorvexPlugin::ColourOf(values[5])), contrast(values[6] / 100.0F),
          fibres(values[7] / 100.0F), gaps(values[8] != 0.0F)
    {
    }

    float pixel;  // of the texture
    int cut, boards;
    float rings, wave;
    Colour early, late;
    float contrast, fibres;
    bool gaps;
};

// Where a point of the surface lies in the tree.
struct Grain {
    float radius = 0.0F;  // from the pith, in rings
    int board = 0;
    float edge = 1.0F;  // to the board's edge, in widths of the board
};

// A board cuts the trunk beside the pith, and the trunk is not straight: that draws the arches.
Grain InBoard(const Values& values, float u, float v)
{
    Grain grain;
    const float x = u * static_cast<float>(values.boards);
    grain.board = static_cast<int>(x);
    const float across = x - static_cast<float>(grain.board) - 0.5F;
    grain.edge = 0.5F - std::abs(across);
    const auto seed = 40U + static_cast<std::uint32_t>(grain.board) * 7U;
    const float pith = (Lattice(grain.board, 0, 41) - 0.5F) * 0.7F;
    const float depth = 0.2F + 0.5F * Lattice(grain.board, 1, 41) +
                        values.wave * 0.7F * Fractal(0.5F, v, {{1, 1}, 3, seed}, values.pixel);
    const float sway = values.wave * 0.1F * Fractal(0.5F, v, {{1, 2}, 2, seed + 3}, values.pixel);
    grain.radius = values.rings * std::hypot(across - pith + sway, depth);
    return grain;
}

// A turned piece shows the arches on two sides, because the pith is never in its middle.
Grain InTurned(const Values& values, float u, float v)
{
    Grain grain;
    const float wander =
        0.3F + values.wave * 0.3F * Fractal(0.5F, v, {{1, 2}, 3, 47}, values.pixel);
    const float angle = kTurn * u;
    grain.radius =
        values.rings * std::hypot(0.55F * std::cos(angle) - wander, 0.55F * std::sin(angle) + 0.1F);
    return grain;
}

// From 0 in the soft early wood to 1 in the dark line that ends the year. The flanks are at least a
// pixel wide.
float YearTone(float radius, float pixel)
{
    const float year = Fraction(radius);
    const float blur = std::max(0.06F, pixel);
    const float tone = Smooth(0.1F, 1.0F - blur, year) * (1.0F - Smooth(1.0F - blur, 1.0F, year));
    // Rings finer than pixels run together.
    return Mix(tone, kMeanTone, Smooth(0.3F, 0.9F, pixel));
}

Point PointAt(const Values& values, float u, float v)
{
    Grain grain = values.cut == Boards ? InBoard(values, u, v) : InTurned(values, u, v);
    const auto seed = static_cast<std::uint32_t>(grain.board);
    grain.radius += 0.35F * Fractal(u, v, {{6, 2}, 3, 51 + seed}, values.pixel);
    const float spread = values.rings * values.pixel * static_cast<float>(values.boards);
    const float year =
        YearTone(grain.radius, values.cut == Boards ? spread : values.rings * values.pixel * 4.0F);

    // Long fibres, and the short dark pores between them.
    const float fibre = Fractal(u, v, {{96, 3}, 3, 61 + seed}, values.pixel);
    const float pore = Smooth(0.3F, 0.55F, Noise(u * 220.0F, v * 14.0F, {220, 14}, 71));
    const float cloud = Fractal(u, v, {{3, 2}, 2, 81 + seed}, values.pixel);
    const float own = values.cut == Boards ? Lattice(grain.board, 2, 41) - 0.5F : 0.0F;

    const float late = std::clamp(values.contrast * year + cloud * 0.12F, 0.0F, 1.0F);
    Point point;
    point.colour = Mix(values.early, values.late, late);
    point.colour = Scaled(point.colour, 1.0F + own * 0.22F + values.fibres * fibre * 0.22F -
                                            values.fibres * pore * 0.2F);
    point.height = 0.7F + year * 0.06F + values.fibres * (fibre * 0.12F - pore * 0.22F);
    if (values.gaps && values.cut == Boards && values.boards > 1) {
        const float width = values.pixel * static_cast<float>(values.boards);
        const float gap = 1.0F - Smooth(kGap - width, kGap + width, grain.edge);
        const float bevel = 1.0F - Smooth(0.0F, 0.05F, grain.edge);
        point.colour = Scaled(point.colour, (1.0F - 0.78F * gap) * (1.0F - 0.1F * bevel));
        point.height -= 0.55F * gap + 0.1F * bevel;
    }
    return point;
}

}  // namespace

std::vector<CorvexPlugin::Parameter> WoodPlugin::Parameters() const
{
    return {
        {"Cut for", ParameterKind::SimpleShape, 0, 0, 0, {}, Boards, 0},
        {"Boards", ParameterKind::Slider, 1, 12, 0, {}, 5, 2},
        {"Rings", ParameterKind::Slider, 3, 40, 0, {}, 14, 5},
        {"Wave", ParameterKind::Number, 0, 2, 2, {}, 0.8F, 0.1F},
        {"Early wood",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.80F, 0.60F, 0.38F}),
         0},
        {"Late wood",
         ParameterKind::PackedColour,
         0,
         0,
         0,
         {},
         CorvexPlugin::Packed({0.47F, 0.27F, 0.13F}),
         0},
        {"Contrast", ParameterKind::Slider, 0, 100, 0, {}, 75, 10},
        {"Fibres", ParameterKind::Slider, 0, 100, 0, {}, 60, 10},
        {"Gaps", ParameterKind::Tick, 0, 0, 0, {}, 1, 0},
    };
}

void WoodPlugin::Generate(const CorvexPlugin::Request& request,
                          CorvexPlugin::Texture& texture) const
{
    const Values values(request.values, 1.0F / static_cast<float>(request.height));
    CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture,
                       [&](float u, float v) { return PointAt(values, u, v); });
}

#include "moc_WoodPlugin.cpp"
