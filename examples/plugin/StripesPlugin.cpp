#include "StripesPlugin.h"

#include <algorithm>
#include <cmath>

using CorvexPlugin::Colour;
using CorvexPlugin::ParameterKind;
using CorvexPlugin::Point;

std::vector<CorvexPlugin::Parameter> StripesPlugin::Parameters() const
{
    CorvexPlugin::Parameter count;
    count.name = "Stripes";
    count.kind = ParameterKind::Slider;
    count.minimum = 1;
    count.maximum = 32;
    count.defaultValue = 8;

    CorvexPlugin::Parameter first;
    first.name = "First";
    first.kind = ParameterKind::PackedColour;
    first.defaultValue = CorvexPlugin::Packed({0.75F, 0.12F, 0.10F});

    CorvexPlugin::Parameter second = first;
    second.name = "Second";
    second.defaultValue = CorvexPlugin::Packed({0.96F, 0.94F, 0.88F});
    return {count, first, second};
}

void StripesPlugin::Generate(const CorvexPlugin::Request& request,
                             CorvexPlugin::Texture& texture) const
{
    const float count = request.values[0];
    const Colour first = CorvexPlugin::ColourOf(request.values[1]);
    const Colour second = CorvexPlugin::ColourOf(request.values[2]);
    const float pixel = count / static_cast<float>(request.width);

    CorvexPlugin::Fill(request, CorvexPlugin::Relief::None, texture, [&](float u, float) {
        // How much of the pixel belongs to the second colour: its edges lie at 0 and 0.5.
        const float x = u * count - std::floor(u * count);
        const float edge = 0.25F - std::abs(x - 0.75F);
        const float part = std::clamp(edge / pixel + 0.5F, 0.0F, 1.0F);
        return Point{{first.red + (second.red - first.red) * part,
                      first.green + (second.green - first.green) * part,
                      first.blue + (second.blue - first.blue) * part}};
    });
}
