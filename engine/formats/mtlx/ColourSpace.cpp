#include "ColourSpace.h"

#include "MaterialModel.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace studio {
namespace {

enum class Primaries { Rec709, Ap1, DisplayP3 };

/// Gamma 0 stands for the curve of sRGB.
struct SpaceRow {
    std::string_view name;
    float gamma;
    Primaries primaries;
};

constexpr std::array kSpaces{
    SpaceRow{"", 1.0F, Primaries::Rec709},
    SpaceRow{"none", 1.0F, Primaries::Rec709},
    SpaceRow{"raw", 1.0F, Primaries::Rec709},
    SpaceRow{"linear", 1.0F, Primaries::Rec709},
    SpaceRow{"lin_rec709", 1.0F, Primaries::Rec709},
    SpaceRow{"lin_rec709_scene", 1.0F, Primaries::Rec709},
    SpaceRow{"lin_srgb", 1.0F, Primaries::Rec709},
    SpaceRow{"srgb_texture", 0.0F, Primaries::Rec709},
    SpaceRow{"srgb_rec709_scene", 0.0F, Primaries::Rec709},
    SpaceRow{"srgb_tx", 0.0F, Primaries::Rec709},
    SpaceRow{"sRGB", 0.0F, Primaries::Rec709},
    SpaceRow{"gamma18", 1.8F, Primaries::Rec709},
    SpaceRow{"g18_rec709", 1.8F, Primaries::Rec709},
    SpaceRow{"gamma22", 2.2F, Primaries::Rec709},
    SpaceRow{"g22_rec709", 2.2F, Primaries::Rec709},
    SpaceRow{"gamma24", 2.4F, Primaries::Rec709},
    SpaceRow{"rec709_display", 2.4F, Primaries::Rec709},
    SpaceRow{"acescg", 1.0F, Primaries::Ap1},
    SpaceRow{"lin_ap1", 1.0F, Primaries::Ap1},
    SpaceRow{"lin_ap1_scene", 1.0F, Primaries::Ap1},
    SpaceRow{"g22_ap1", 2.2F, Primaries::Ap1},
    SpaceRow{"lin_displayp3", 1.0F, Primaries::DisplayP3},
    SpaceRow{"srgb_displayp3", 0.0F, Primaries::DisplayP3},
};

using Matrix = std::array<Rgb, 3>;  // rows

constexpr Matrix kRec709FromAp1{{{1.70505F, -0.62179F, -0.08326F},
                                 {-0.13026F, 1.14080F, -0.01055F},
                                 {-0.02400F, -0.12897F, 1.15297F}}};
constexpr Matrix kRec709FromDisplayP3{
    {{1.22494F, -0.22494F, 0.0F}, {-0.04206F, 1.04206F, 0.0F}, {-0.01964F, -0.07864F, 1.09827F}}};

float Dot(Rgb row, Rgb colour)
{
    const Rgb product = row * colour;
    return std::max(product.red + product.green + product.blue, 0.0F);
}

Rgb Times(const Matrix& matrix, Rgb colour)
{
    return {Dot(matrix[0], colour), Dot(matrix[1], colour), Dot(matrix[2], colour)};
}

float Linear(float encoded, float gamma)
{
    if (gamma == 1.0F || encoded <= 0.0F) {
        return encoded;
    }
    return gamma == 0.0F ? LinearFromEncoded(encoded) : std::pow(encoded, gamma);
}

}  // namespace

std::optional<Rgb> LightInSpace(Rgb colour, std::string_view space)
{
    const auto* row = std::ranges::find(kSpaces, space, &SpaceRow::name);
    if (row == kSpaces.end()) {
        return std::nullopt;
    }
    const Rgb light{Linear(colour.red, row->gamma), Linear(colour.green, row->gamma),
                    Linear(colour.blue, row->gamma)};
    switch (row->primaries) {
    case Primaries::Ap1:
        return Times(kRec709FromAp1, light);
    case Primaries::DisplayP3:
        return Times(kRec709FromDisplayP3, light);
    case Primaries::Rec709:
        break;
    }
    return light;
}

}  // namespace studio
