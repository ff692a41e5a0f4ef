#pragma once

#include <CorvexMaterial/Colour.h>

#include <QPalette>

#include <algorithm>

namespace CorvexMaterial {

/// Contrast of WCAG 2.1: edges and signs are seen from 3, text is read with ease from 4.5.
inline constexpr double kSeenContrast = 3.0;
inline constexpr double kReadContrast = 4.5;

/// Of one colour against another, from 1 to 21.
[[nodiscard]] inline double Contrast(const QColor& first, const QColor& second)
{
    const auto light = [](const QColor& colour) {
        return 0.05 + 0.2126 * LinearFromEncoded(colour.redF()) +
               0.7152 * LinearFromEncoded(colour.greenF()) +
               0.0722 * LinearFromEncoded(colour.blueF());
    };
    const auto [darker, lighter] = std::minmax({light(first), light(second)});
    return lighter / darker;
}

[[nodiscard]] inline QColor Mixed(const QColor& ink, const QColor& ground, int percent)
{
    const auto mix = [percent](int from, int to) {
        return (from * percent + to * (100 - percent)) / 100;
    };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
            mix(ink.blue(), ground.blue())};
}

/// Black or white, whichever is read better there.
[[nodiscard]] inline QColor StrongTextOn(const QColor& ground)
{
    return Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

/// The colour, with as much of the ink as makes it be seen or read on the ground.
[[nodiscard]] inline QColor Inked(const QColor& colour, const QColor& ink, const QColor& ground,
                                  double contrast)
{
    int percent = 0;
    while (percent < 100 && Contrast(Mixed(ink, colour, percent), ground) < contrast) {
        percent += 5;
    }
    return Mixed(ink, colour, percent);
}

/// Text on a background of any colour, as quiet as can be read with ease.
[[nodiscard]] inline QColor QuietTextOn(const QColor& ground)
{
    const QColor ink = StrongTextOn(ground);
    return Inked(Mixed(ink, ground, 60), ink, ground, kReadContrast);
}

/// The edge of a control: the palette's own, if need be with as much of the text in it as makes it
/// be seen against what it stands on and its own inside.
[[nodiscard]] inline QColor EdgeOf(const QPalette& palette)
{
    QColor edge = palette.color(QPalette::Dark);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        edge = Inked(edge, palette.color(QPalette::WindowText), palette.color(role), kSeenContrast);
    }
    return edge;
}

/// What is wrong, as text or around a field: red, with as much white or black as can be read.
[[nodiscard]] inline QColor ErrorOn(const QColor& ground)
{
    return Inked(QColor(0xD8, 0x3A, 0x34), StrongTextOn(ground), ground, kReadContrast);
}

}  // namespace CorvexMaterial
