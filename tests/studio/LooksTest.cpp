#include "ThemeColours.h"
#include <CorvexMaterial/LegibleColours.h>

namespace {

using CorvexMaterial::Contrast;
using CorvexMaterial::kReadContrast;
using CorvexMaterial::kSeenContrast;
using studio::Theme;

TEST(Looks, EveryThemeCanBeReadAndItsEdgesSeen)
{
    ASSERT_NEAR(Contrast(QColor("#767676"), Qt::white), 4.54, 0.01) << "of the recommendation";
    for (const Theme theme : {Theme::Light, Theme::Dark, Theme::HighContrast}) {
        const studio::ThemeColours& colours = studio::ColoursOf(theme);
        const QPalette palette = studio::PaletteOf(theme);
        const QColor edge = CorvexMaterial::EdgeOf(palette);
        const auto expect = [theme](const QColor& ink, QRgb ground, double contrast) {
            EXPECT_GE(Contrast(ink, QColor(ground)), contrast)
                << "theme " << static_cast<int>(theme) << ": " << ink.name().toStdString() << " on "
                << QColor(ground).name().toStdString();
        };
        for (const QRgb ground : {colours.window, colours.field, colours.button, colours.bar,
                                  colours.band, colours.tip, colours.pointed}) {
            expect(colours.text, ground, kReadContrast);
        }
        for (const QRgb ground : {colours.window, colours.field}) {
            expect(colours.hint, ground, kReadContrast);
            expect(CorvexMaterial::ErrorOn(QColor(ground)), ground, kReadContrast);
            expect(colours.accent, ground, kSeenContrast);  // what has the focus
        }
        for (const QRgb ground : {colours.window, colours.field, colours.button, colours.band}) {
            expect(edge, ground, kSeenContrast);
        }
        expect(colours.quiet, colours.bar, kReadContrast);
        expect(colours.quiet, colours.band, kReadContrast);
        expect(colours.onAccent, colours.accent, kReadContrast);
        EXPECT_FALSE(studio::SheetOf(theme).contains('@')) << "a colour without a name";
    }
}

}  // namespace
