#include "PovRayPigment.h"

#include <CorvexMaterial/Looks.h>

#include <algorithm>
#include <array>

namespace studio {
namespace {

std::array<float, 3> Channels(const Rgb& colour)
{
    return {colour.red, colour.green, colour.blue};
}

/// The primary texel under the overlay, one channel of it.
std::string TexelText(const SurfaceDraft& surface, std::string_view channel)
{
    const std::string below = surface.Shows(Layer::Primary)
                                  ? ChannelText(surface.name, Layer::Primary, channel)
                                  : std::string("1");
    if (!surface.Shows(Layer::Overlay)) {
        return below;
    }
    const std::string amount = NumberText(OverlayOpacityOf(surface.material)) + "*(1-" +
                               ChannelText(surface.name, Layer::Overlay, "transmit") + ')';
    return below + "+(" + ChannelText(surface.name, Layer::Overlay, channel) + '-' + below + ")*" +
           amount;
}

/// POV-Ray has no product of an image and a colour: each channel is drawn by itself, and the three
/// are added up.
void WriteImageColours(TextStream& out, const SurfaceDraft& surface)
{
    constexpr std::array<std::string_view, 3> kChannels{"red", "green", "blue"};
    const std::array<float, 3> base = Channels(surface.terms.base);
    const float clear = 1.0F - surface.terms.opacity;
    out << surface.placement.Mapping() << "average pigment_map {\n";
    for (std::size_t i = 0; i < kChannels.size(); ++i) {
        std::array<float, 3> full{};
        full[i] = 3.0F * base[i];
        out << "    [1 function { min(1,max(0," << TexelText(surface, kChannels[i])
            << ")) } color_map { [0 rgbt <0,0,0," << clear << ">] [1 rgbt <" << full[0] << ','
            << full[1] << ',' << full[2] << ',' << clear << ">] }]\n";
    }
    out << "  }";
}

void WritePatternColour(TextStream& out, const SurfaceDraft& surface, std::size_t i)
{
    const Rgb colour = surface.terms.base *
                       CorvexMaterial::LightOf(surface.material.RayTrace.ColorPatternColor[i]);
    out << "rgbt <" << colour.red << ',' << colour.green << ',' << colour.blue << ','
        << 1.0F - surface.terms.opacity << '>';
}

void WriteColourMap(TextStream& out, const SurfaceDraft& surface)
{
    const auto& attributes = surface.material.RayTrace;
    const PatternAmounts amounts = ColourPatternOf(attributes);
    out << " color_map {";
    for (std::size_t i = 0; i < attributes.ColorPatternColor.size(); ++i) {
        out << " [" << static_cast<float>(i) / 3.0F << ' ';
        WritePatternColour(out, surface, i);
        out << ']';
    }
    out << " } frequency " << amounts.frequency;
    if (amounts.turbulence > 0.0F) {
        out << " turbulence " << amounts.turbulence;
    }
}

void WritePatternColours(TextStream& out, const SurfaceDraft& surface)
{
    const CorvexMaterial::PovRayPattern& pattern = *surface.colours;
    out << pattern.text;
    if (pattern.blocks) {
        out << ' ';
        WritePatternColour(out, surface, 0);
        out << ' ';
        WritePatternColour(out, surface, 1);
    } else {
        WriteColourMap(out, surface);
    }
    WritePatternSpace(out, surface.item, pattern.scale, pattern.place);
}

}  // namespace

void DeclarePigment(TextStream& out, const SurfaceDraft& surface)
{
    out << "#declare " << surface.name << "_pigment = pigment { ";
    if (surface.colours != nullptr) {
        WritePatternColours(out, surface);
    } else if (surface.Shows(Layer::Primary) || surface.Shows(Layer::Overlay)) {
        WriteImageColours(out, surface);
    } else {
        const std::array<float, 3> base = Channels(surface.terms.base);
        out << "rgbt <" << base[0] << ',' << base[1] << ',' << base[2] << ','
            << 1.0F - surface.terms.opacity << '>';
    }
    out << " }\n";
}

}  // namespace studio
