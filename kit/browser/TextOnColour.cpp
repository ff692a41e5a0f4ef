#include "TextOnColour.h"

#include <CorvexMaterial/Colour.h>

#include <algorithm>

namespace studio {
namespace {

// Of one colour against another, from 1 to 21 (WCAG 2.1); text is read with ease from 4.5.
constexpr double kEasyContrast = 4.5;

double Contrast(const QColor& first, const QColor& second)
{
    using CorvexMaterial::LinearFromEncoded;
    const auto light = [&](const QColor& colour) {
        return 0.05 + 0.2126 * LinearFromEncoded(colour.redF()) +
               0.7152 * LinearFromEncoded(colour.greenF()) +
               0.0722 * LinearFromEncoded(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({light(first), light(second)});
    return lighter / darker;
}

QColor Mixed(const QColor& ink, const QColor& ground, int percent)
{
    const auto mix = [percent](int from, int to) {
        return (from * percent + to * (100 - percent)) / 100;
    };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
            mix(ink.blue(), ground.blue())};
}

}  // namespace

QColor StrongTextOn(const QColor& background)
{
    return Contrast(Qt::black, background) > Contrast(Qt::white, background) ? Qt::black
                                                                             : Qt::white;
}

QColor QuietTextOn(const QColor& background)
{
    const QColor ink = StrongTextOn(background);
    int percent = 60;
    while (percent < 100 && Contrast(Mixed(ink, background, percent), background) < kEasyContrast) {
        percent += 5;
    }
    return Mixed(ink, background, percent);
}

}  // namespace studio
