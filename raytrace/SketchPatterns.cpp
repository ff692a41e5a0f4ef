#include "raytrace/SketchPatterns.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace CorvexMaterial {

namespace {

constexpr float kTurn = 2.0F * std::numbers::pi_v<float>;

float Fraction(float value)
{
    return value - std::floor(value);
}

float Triangle(float value)
{
    const float in = Fraction(value);
    return in < 0.5F ? 2.0F * in : 2.0F - 2.0F * in;
}

std::int32_t CellOf(float value)
{
    return static_cast<std::int32_t>(std::floor(value));
}

/// The sum of noise of several sizes, each half of the one before.
template <typename Shape>
float Fractal(SketchPoint at, int octaves, Shape shape)
{
    float sum = 0.0F;
    float weight = 1.0F;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * shape(Noise(at));
        at = at * 2.0F + SketchPoint{5.2F, 1.3F, 9.1F};
        weight *= 0.5F;
    }
    return sum;
}

float Ridges(SketchPoint at, int octaves)
{
    return Fractal(at, octaves, [](float noise) { return std::abs(noise - 0.5F) * 2.0F; });
}

float Agate(SketchPoint at)
{
    const float wave = std::sin(kTurn * (1.3F * Ridges(at * 1.5F, 5) + 1.1F * at.z)) + 1.0F;
    return std::pow(0.5F * wave, 0.77F);
}

float Boxed(SketchPoint at)
{
    return std::max(0.0F, 1.0F - std::max({std::abs(at.x), std::abs(at.y), std::abs(at.z)}));
}

float Cells(SketchPoint at)
{
    return CellValue(CellOf(at.x), CellOf(at.y), CellOf(at.z));
}

float Checker(SketchPoint at)
{
    return static_cast<float>((CellOf(at.x) + CellOf(at.y) + CellOf(at.z)) & 1);
}

/// How much nearer the nearest of scattered points is than the second.
float Crackle(SketchPoint at)
{
    const std::int32_t x = CellOf(at.x);
    const std::int32_t y = CellOf(at.y);
    const std::int32_t z = CellOf(at.z);
    float nearest = 9.0F;
    float second = 9.0F;
    for (std::int32_t i = 0; i < 27; ++i) {
        const std::int32_t cx = x - 1 + i % 3;
        const std::int32_t cy = y - 1 + i / 3 % 3;
        const std::int32_t cz = z - 1 + i / 9;
        const SketchPoint point{static_cast<float>(cx) + CellValue(cx, cy, cz),
                                static_cast<float>(cy) + CellValue(cy, cz, cx + 91),
                                static_cast<float>(cz) + CellValue(cz, cx, cy + 57)};
        const float distance = Length(at - point);
        second = std::min(second, std::max(distance, nearest));
        nearest = std::min(nearest, distance);
    }
    return std::min(1.0F, second - nearest);
}

float Cylindrical(SketchPoint at)
{
    return std::max(0.0F, 1.0F - std::hypot(at.x, at.z));
}

float Dents(SketchPoint at)
{
    const float noise = Noise(at);
    return std::min(1.0F, 2.0F * noise * noise * noise);
}

float Gradient(SketchPoint at)
{
    return Fraction(at.y);
}

float Granite(SketchPoint at)
{
    return std::min(1.0F, 0.75F * Ridges(at * 4.0F, 5));
}

float Leopard(SketchPoint at)
{
    const float sum = (std::sin(at.x) + std::sin(at.y) + std::sin(at.z)) / 3.0F;
    return sum * sum;
}

float Marble(SketchPoint at)
{
    return Triangle(at.x);
}

float Onion(SketchPoint at)
{
    return Fraction(Length(at));
}

float Planar(SketchPoint at)
{
    return std::max(0.0F, 1.0F - std::abs(at.y));
}

float Quilted(SketchPoint at)
{
    const SketchPoint in{Fraction(at.x) - 0.5F, Fraction(at.y) - 0.5F, Fraction(at.z) - 0.5F};
    return std::min(1.0F, Length(in) / 0.87F);
}

float Radial(SketchPoint at)
{
    return Fraction(0.25F + std::atan2(at.x, at.z) / kTurn);
}

constexpr std::array<SketchPoint, 6> kSources{{{0.4F, 0.8F, -0.5F},
                                               {-0.7F, 0.1F, 0.6F},
                                               {0.9F, -0.4F, 0.2F},
                                               {-0.2F, -0.9F, -0.6F},
                                               {0.1F, 0.5F, 0.9F},
                                               {-0.8F, 0.6F, -0.3F}}};

/// Rings around several points.
float Ripples(SketchPoint at)
{
    float sum = 0.0F;
    for (const SketchPoint source : kSources) {
        sum += std::sin(kTurn * Length(at - source * 4.0F));
    }
    return 0.5F + 0.5F * sum / static_cast<float>(kSources.size());
}

float Waves(SketchPoint at)
{
    float sum = 0.0F;
    float length = 0.6F;
    for (const SketchPoint source : kSources) {
        sum += std::sin(kTurn * Length(at - source * 6.0F) * length);
        length *= 1.3F;
    }
    return 0.5F + 0.5F * sum / static_cast<float>(kSources.size());
}

float Spherical(SketchPoint at)
{
    return std::max(0.0F, 1.0F - Length(at));
}

constexpr float kArms = 5.0F;

float Spiral1(SketchPoint at)
{
    return Fraction(std::hypot(at.x, at.y) + kArms * std::atan2(at.x, at.y) / kTurn);
}

float Spiral2(SketchPoint at)
{
    const float turn = kArms * std::atan2(at.x, at.y) / kTurn;
    const float distance = std::hypot(at.x, at.y);
    return Triangle(turn + Triangle(distance));
}

float Wood(SketchPoint at)
{
    return Triangle(std::hypot(at.x, at.y));
}

float Wrinkles(SketchPoint at)
{
    return std::min(1.0F, 0.6F * Ridges(at, 6));
}

/// One third of each of three colours.
float Hexagon(SketchPoint at)
{
    const float row = at.z * 1.1547F;
    const float column = at.x - 0.5F * row;
    const auto parity = static_cast<float>(((CellOf(column) - CellOf(row)) % 3 + 3) % 3);
    return parity / 2.0F;
}

struct PatternRow {
    float (*at)(SketchPoint);
    float scale;
    SketchPoint place = {};
    bool block = false;
};

// Scales and places are those of the exported scenes, so that sketch and rendered picture agree.
constexpr std::array<PatternRow, 24> kColourPatterns{{
    {nullptr, 1.0F},
    {Agate, 0.5F},
    {Boxed, 1.2F},
    {Noise, 0.35F},
    {Cells, 0.35F},
    {Checker, 0.35F, {}, true},
    {Crackle, 0.4F},
    {Cylindrical, 1.5F},
    {Dents, 0.3F},
    {Gradient, 2.0F, {0.0F, -1.0F, 0.0F}},
    {Granite, 0.6F},
    {Leopard, 0.12F},
    {Marble, 0.5F},
    {Onion, 0.35F, {0.6F, 0.5F, -0.6F}},
    {Planar, 1.0F},
    {Quilted, 0.4F},
    {Radial, 1.0F},
    {Ripples, 0.35F},
    {Spherical, 2.0F, {0.5F, 0.6F, -0.7F}},
    {Spiral1, 0.6F},
    {Spiral2, 0.6F},
    {Waves, 0.35F},
    {Wood, 0.4F},
    {Wrinkles, 0.5F},
}};

// The shells of an onion around the sphere's own middle would leave it smooth.
float OnionBumps(SketchPoint at)
{
    return Onion(at - SketchPoint{1.7F, 1.4F, -1.7F});
}

float BozoBumps(SketchPoint at)
{
    return Noise(at * 0.6F);
}

constexpr std::array<float (*)(SketchPoint), 15> kNormalPatterns{
    nullptr, Noise,   Dents,      Ripples, Wrinkles, BozoBumps, Checker, Crackle,
    Granite, Hexagon, OnionBumps, Quilted, Spiral1,  Spiral2,   Waves};

}  // namespace

float ColourPatternAt(ColorPattern pattern, SketchPoint at, const PatternSetting& setting)
{
    const auto index = static_cast<std::size_t>(pattern);
    if (index >= kColourPatterns.size() || kColourPatterns[index].at == nullptr) {
        return 0.0F;
    }
    const PatternRow& row = kColourPatterns[index];
    const SketchPoint place = (at - row.place) * (1.0F / (row.scale * setting.size));
    const float value = row.at(row.block ? place : Shaken(place, setting.turbulence));
    const float waved = value * setting.frequency;
    return row.block || waved <= 1.0F ? value * (row.block ? 1.0F : setting.frequency)
                                      : Fraction(waved);
}

float NormalPatternAt(NormalPattern pattern, SketchPoint at, const PatternSetting& setting)
{
    const auto index = static_cast<std::size_t>(pattern);
    if (index >= kNormalPatterns.size() || kNormalPatterns[index] == nullptr) {
        return 0.0F;
    }
    const SketchPoint place = Shaken(at * (1.0F / setting.size), setting.turbulence);
    return Triangle(0.5F * kNormalPatterns[index](place) * setting.frequency);
}

}  // namespace CorvexMaterial
