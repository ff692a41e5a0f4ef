#include "Backdrop.h"

namespace studio {
namespace {

constexpr float kLift = 0.10F;   ///< of the way to white, at the top
constexpr float kShade = 0.24F;  ///< of the way to black, at the bottom

}  // namespace

BackdropColours BackdropColoursOf(CorvexMaterial::Colour background, Backdrop backdrop)
{
    const CorvexMaterial::Rgb displayed = CorvexMaterial::DisplayedOf(background);
    const EncodedColour colour{displayed.red, displayed.green, displayed.blue};
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
