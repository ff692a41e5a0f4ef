// The same material in the viewport and in POV-Ray.

#include "studio/scene/ParametricMesh.h"
#include "tests/studio_raytrace/RaytraceRig.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

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
    double tolerance = 5.0;  ///< mean difference, of 255
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
         }},
    Case{"environment",
         [](udtMaterial& m, RaytraceRig& rig) {
             m.Textures.environment = rig.Image("e.png", Sky, {64, 64});
         }},
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

std::vector<QPoint> Everywhere(const QImage& picture)
{
    std::vector<QPoint> points;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            points.emplace_back(x, y);
        }
    }
    return points;
}

TEST(Comparison, PovRayShowsWhatTheViewportShows)
{
    RaytraceRig rig;
    std::vector<QImage> pictures;
    QStringList captions;
    studio::RaytraceScene nothing = SceneWith(Sphere(), [](udtMaterial&) {});
    nothing.frame.items.clear();
    const QImage empty = rig.Draw(nothing);
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.name);
        const auto scene = SceneWith(Sphere(), [&](udtMaterial& m) { each.change(m, rig); });
        const QImage drawn = rig.Draw(scene);
        const Raytraced raytraced = rig.Raytrace(scene);
        ASSERT_FALSE(raytraced.picture.isNull()) << raytraced.messages.right(2000).toStdString();
        const QImage picture = raytraced.picture.convertToFormat(QImage::Format_RGB32);
        const double inside = MeanDifference(drawn, picture, Inside(drawn, empty));
        std::printf("%-18s inside %.2f, whole picture %.2f\n", each.name, inside,
                    MeanDifference(drawn, picture, Everywhere(drawn)));
        EXPECT_LT(inside, each.tolerance);
        pictures.insert(pictures.end(), {drawn, picture});
        captions << QLatin1String(each.name) << QStringLiteral("%1 POV-Ray").arg(inside, 0, 'f', 2);
    }
    Keep(Sheet(pictures, 6, captions), "raytrace-compare.png");
}

}  // namespace
