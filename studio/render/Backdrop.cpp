#include "studio/render/Backdrop.h"

namespace studio {
namespace {

constexpr float kLift = 0.10F;   ///< of the way to white, at the top
constexpr float kShade = 0.24F;  ///< of the way to black, at the bottom

}  // namespace

BackdropColours BackdropColoursOf(CorvexMaterial::Colour background, Backdrop backdrop)
{
    const CorvexMaterial::ColourBytes bytes = CorvexMaterial::BytesOf(background);
    const EncodedColour colour{static_cast<float>(bytes.red) / 255.0F,
                               static_cast<float>(bytes.green) / 255.0F,
                               static_cast<float>(bytes.blue) / 255.0F};
    BackdropColours colours{colour, colour};
    if (backdrop == Backdrop::Gradient) {
        for (float& channel : colours.top) {
            channel += kLift * (1.0F - channel);
        }
        for (float& channel : colours.bottom) {
            channel *= 1.0F - kShade;
        }
    }
    return colours;
}

}  // namespace studio
