// The same material in the viewport and in POV-Ray.

#include "tests/studio_raytrace/SphereGrid.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <span>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

constexpr int kCell = kSanitized ? 64 : 144;

QColor Checks(int x, int y)
{
    return (x / 8 + y / 8) % 2 == 0 ? QColor(230, 60, 40) : QColor(40, 4 * x, 4 * y);
}

QColor Bumps(int x, int y)
{
    const double height = std::sin(x * 0.39269908) * std::sin(y * 0.39269908);
    const int grey = static_cast<int>(127.5 + 127.5 * height);
    return {grey, grey, grey};
}

QColor Discs(int x, int y)
{
    const double radius = std::hypot(x % 16 - 8.0, y % 16 - 8.0);
    return {90, 160, 60, radius < 6.0 ? 255 : 0};
}

QColor Sky(int x, int y)
{
    return y < 32 ? QColor(120 + 2 * x, 170, 250) : QColor(90, 60 + 2 * x, 40);
}

struct Case {
    const char* name;
    void (*change)(udtMaterial&, RaytraceRig&);
    double tolerance = 1.5;  ///< mean difference, of 255
};

const std::array kCases{
    Case{"plain", [](udtMaterial& m, RaytraceRig&) { m.Color = 0x4060C0; }},
    Case{"shiny",
         [](udtMaterial& m, RaytraceRig&) {
             m.Color = 0x208040;
             m.Specular = 90;
         }},
    Case{"emissive",
         [](udtMaterial& m, RaytraceRig&) {
             m.Color = 0x20A0F0;
             m.Emissive = 80;
         }},
    Case{"dark ambient",
         [](udtMaterial& m, RaytraceRig&) {
             m.Ambient = 0;
             m.Emissive = 0;
         }},
    Case{"transparent",
         [](udtMaterial& m, RaytraceRig&) {
             m.Color = 0xC08040;
             m.Transparency = 60;
             m.Specular = 50;
         }},
    Case{"textured",
         [](udtMaterial& m, RaytraceRig& rig) { m.Textures.primary = rig.Image("p.png", Checks); }},
    Case{"tinted overlay",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Color = 0x80C0FF;
             m.Textures.primary = rig.Image("p.png", Checks);
             m.Textures.overlay = rig.Image("o.png", Discs);
             m.OverlayTranslucency = 25.0F;
         }},
    Case{"cropped, flipped",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Textures.primary = rig.Image("p.png", Checks);
             m.Placement = {0.25F, 0.125F, 0.5F, 0.25F};
             m.WrapOrientationU = true;
         }},
    Case{"alpha-tested",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Textures.primary = rig.Image("d.png", Discs);
             m.AlphaTest = 4;
             m.AlphaTestReference = 128;
             m.DoubleSided = true;
         }},
    Case{"specular map",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Color = 0x3030B0;
             m.Specular = 100;
             m.Textures.specular = rig.Image("s.png", Checks);
         }},
    Case{"bumped",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Color = 0x50A0E0;
             m.Specular = 40;
             m.Textures.bump = rig.Image("b.png", Bumps);
         },
         6.0},
    Case{"environment",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Textures.environment = rig.Image("e.png", Sky, {64, 64});
         },
         3.0},
};

std::array<int, 3> Channels(QRgb pixel)
{
    return {qRed(pixel), qGreen(pixel), qBlue(pixel)};
}

int Difference(QRgb one, QRgb other)
{
    int sum = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        sum += std::abs(Channels(one)[i] - Channels(other)[i]);
    }
    return sum;
}

/// The pixels that show the shape, less a band along its outline.
std::vector<QPoint> Inside(const QImage& picture, const QImage& empty)
{
    constexpr int kBand = 2;
    std::vector<QPoint> inside;
    for (int y = kBand; y < picture.height() - kBand; ++y) {
        for (int x = kBand; x < picture.width() - kBand; ++x) {
            bool covered = true;
            for (int dy = -kBand; dy <= kBand && covered; ++dy) {
                for (int dx = -kBand; dx <= kBand && covered; ++dx) {
                    covered = picture.pixel(x + dx, y + dy) != empty.pixel(x + dx, y + dy);
                }
            }
            if (covered) {
                inside.emplace_back(x, y);
            }
        }
    }
    return inside;
}

double MeanDifference(const QImage& one, const QImage& other, const std::vector<QPoint>& where)
{
    double sum = 0.0;
    for (const QPoint point : where) {
        sum += Difference(one.pixel(point), other.pixel(point));
    }
    return where.empty() ? 255.0 : sum / (3.0 * static_cast<double>(where.size()));
}

/// A scene as both draw it, and without its shapes.
struct Compared {
    QImage drawn;
    QImage raytraced;
    QImage empty;
    QString messages;
};

Compared Compare(RaytraceRig& rig, const studio::RaytraceScene& scene)
{
    Compared compared;
    compared.drawn = rig.Draw(scene);
    const Raytraced raytraced = rig.Raytrace(scene);
    compared.raytraced = raytraced.picture.convertToFormat(QImage::Format_RGB32);
    compared.messages = raytraced.messages.right(2000);
    studio::RaytraceScene nothing = scene;
    nothing.frame.items.clear();
    compared.empty = rig.Draw(nothing);
    return compared;
}

/// The pictures side by side, for the documentation.
struct Pairs {
    std::vector<QImage> pictures;
    QStringList captions;
};

void CheckCases(RaytraceRig& rig, std::span<const Case> cases, Pairs& pairs)
{
    SphereGrid grid;
    grid.columns = std::min(static_cast<int>(cases.size()), 4);
    grid.cell = kCell;
    grid.yawDegrees = 32.0F;
    grid.pitchDegrees = 24.0F;
    for (const Case& each : cases) {
        each.change(grid.materials.emplace_back(), rig);
    }
    const Compared compared = Compare(rig, grid.Scene());
    ASSERT_FALSE(compared.raytraced.isNull()) << compared.messages.toStdString();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const QImage drawn = compared.drawn.copy(grid.Cell(i));
        const QImage raytraced = compared.raytraced.copy(grid.Cell(i));
        const std::vector<QPoint> inside = Inside(drawn, compared.empty.copy(grid.Cell(i)));
        const double difference = MeanDifference(drawn, raytraced, inside);
        std::printf("%-18s %.2f\n", cases[i].name, difference);
        EXPECT_GT(inside.size(), kCell * kCell / 8U) << cases[i].name;
        EXPECT_LT(difference, cases[i].tolerance) << cases[i].name;
        pairs.pictures.insert(pairs.pictures.end(), {drawn, raytraced});
        pairs.captions << QLatin1String(cases[i].name)
                       << QStringLiteral("%1 POV-Ray").arg(difference, 0, 'f', 2);
    }
}

TEST(Comparison, PovRayShowsWhatTheViewportShows)
{
    RaytraceRig rig;
    Pairs pairs;
    const std::span<const Case> cases(kCases);
    CheckCases(rig, cases.first(cases.size() - 1), pairs);
    CheckCases(rig, cases.last(1), pairs);  // its environment would be that of the others too
    Keep(Sheet(pairs.pictures, 6, pairs.captions), "raytrace-compare.png");
}

}  // namespace
