#pragma once

#include <CorvexMaterial/Colour.h>

#include <QColor>

namespace CorvexMaterial {

[[nodiscard]] inline QColor ShownOf(Colour colour)
{
    const ColourBytes bytes = BytesOf(colour);
    return {bytes.red, bytes.green, bytes.blue};
}

[[nodiscard]] inline Colour ColourOf(const QColor& shown)
{
    return MakeColour({shown.red(), shown.green(), shown.blue()});
}

/// A colour as it is looked for; 0 to 1 each. Grey keeps the hue that it had.
struct HsvColour {
    double hue = 0.0;
    double saturation = 0.0;
    double value = 1.0;

    bool operator==(const HsvColour&) const = default;

    [[nodiscard]] QColor Shown() const
    {
        return QColor::fromHsvF(static_cast<float>(hue), static_cast<float>(saturation),
                                static_cast<float>(value));
    }
    /// The colour, with what it leaves open taken from this one.
    [[nodiscard]] HsvColour With(const QColor& colour) const
    {
        HsvColour hsv{hue, colour.hsvSaturationF(), colour.valueF()};
        if (colour.hsvHueF() >= 0) {
            hsv.hue = colour.hsvHueF();
        }
        if (hsv.value == 0) {
            hsv.saturation = saturation;
        }
        return hsv;
    }
};

}  // namespace CorvexMaterial
