// The same material in the viewport and in POV-Ray.

#include "SceneWriters.h"
#include "SphereGrid.h"

#include <span>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

constexpr int kSide = kSanitized ? 64 : 256;
constexpr double kLargestMean = 5.0;

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
    udtMaterial material;
    double mean = 1.0;          ///< at most; of 255
    double correlation = 0.99;  ///< at least
    bool wrapped = false;       ///< the material says where its images lie, not the mesh
};

std::vector<Case> Cases(RaytraceRig& rig)
{
    const std::string checks = rig.Image("p.png", Checks);
    const std::string discs = rig.Image("d.png", Discs);
    const std::string bumps = rig.Image("b.png", Bumps);
    const std::string wide =
        rig.Image("w.png", [](int x, int y) { return Bumps(x, 4 * y); }, {64, 16});
    const std::string sky = rig.Image("e.png", Sky);
    const auto round = CorvexDB::WrapType::Cylindrical;
    udtMaterial placed{.Textures = {.primary = checks}, .TextureRotation = 30.0F};
    placed.Projection = {0.3F, 0.2F, -0.1F, 20.0F, 40.0F, -15.0F};
    const auto placedBy = [placed](CorvexDB::WrapType wrap, float width, float height) {
        udtMaterial material = placed;
        material.Wrap = wrap;
        material.TextureWidth = width;
        material.TextureHeight = height;
        return material;
    };
    return {
        {"plain", {.Color = 0x4060C0}},
        {"shiny", {.Color = 0x208040, .Ambient = 0, .Specular = 90}},
        {"emissive", {.Color = 0x20A0F0, .Emissive = 80}},
        {"transparent", {.Color = 0xC08040, .Specular = 50, .Transparency = 60}},
        {"textured, overlaid",
         {.Color = 0x80C0FF,
          .OverlayTranslucency = 25.0F,
          .Textures = {.primary = checks, .overlay = discs}}},
        {"cropped, flipped",
         {.WrapOrientationU = true,
          .Textures = {.primary = checks},
          .Placement = {0.25F, 0.125F, 0.5F, 0.25F}}},
        {"tiled flat",
         {.Wrap = CorvexDB::WrapType::Flat, .TilesPerUnit = 1.5F, .Textures = {.primary = checks}},
         3.0,
         0.98,
         true},
        {"cylindrical wrap", {.Wrap = round, .Textures = {.primary = checks}}, 1.0, 0.99, true},
        {"turned on the mesh", {.Textures = {.primary = checks}, .TextureRotation = 30.0F}},
        {"placed sphere", placedBy({}, 0.0F, 0.0F), 1.5, 0.98, true},
        {"sized sphere", placedBy({}, 1.5F, 1.0F), 3.0, 0.97, true},
        {"sized flat", placedBy(CorvexDB::WrapType::Flat, 1.2F, 0.8F), 3.0, 0.97, true},
        {"sized cylinder", placedBy(round, 1.2F, 0.0F), 3.0, 0.97, true},
        {"alpha-tested",
         {.DoubleSided = true,
          .AlphaTest = 4,
          .AlphaTestReference = 128,
          .Textures = {.primary = discs}}},
        {"specular map", {.Color = 0x3030B0, .Specular = 100, .Textures = {.specular = checks}}},
        {"bumped",
         {.Color = 0x50A0E0, .Specular = 40, .Textures = {.bump = bumps}},
         kLargestMean,
         0.95},
        {"bumped, wrapped",
         {.Color = 0x50A0E0, .Specular = 40, .Wrap = round, .Textures = {.bump = bumps}},
         3.0,
         0.98,
         true},
        {"bumped, wide image", {.Color = 0x50A0E0, .Textures = {.bump = wide}}, kLargestMean, 0.98},
        {"lacquer", {.Color = 0x2020C0, .RayTrace = {.Reflection = 1}}, 5.0, 0.97},
        {"environment", {.Textures = {.environment = sky}}, 2.0},
        {"dark metal",
         {.Color = 0x1B1816, .Textures = {.environment = sky}, .RayTrace = {.Metallic = true}},
         4.0},
    };
}
constexpr std::size_t kSurrounded = 2;  ///< the last ones

/// How far two pictures of a shape are from each other.
struct PictureDifference {
    int pixels;          ///< that counted
    double mean;         ///< of the differences of all channels, of 255
    double correlation;  ///< of the luma; 1 for the same picture, however light
};

/// Where it shows something else than the empty picture, less a band along the outline.
bool IsInside(const QImage& picture, const QImage& empty, int x, int y)
{
    constexpr int kBand = 2;
    for (int i = -kBand; i <= kBand; ++i) {
        for (int j = -kBand; j <= kBand; ++j) {
            const QPoint at(x + i, y + j);
            if (picture.valid(at) && picture.pixel(at) == empty.pixel(at)) {
                return false;
            }
        }
    }
    return true;
}

PictureDifference DifferenceOf(const QImage& one, const QImage& other, const QImage& empty)
{
    int count = 0;
    double distance = 0.0;
    double sumA = 0.0, sumB = 0.0, sumAA = 0.0, sumBB = 0.0, sumAB = 0.0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (!IsInside(one, empty, x, y)) {
                continue;
            }
            const double a = qGray(one.pixel(x, y));
            const double b = qGray(other.pixel(x, y));
            distance += Distance(one.pixel(x, y), other.pixel(x, y));
            sumA += a;
            sumB += b;
            sumAA += a * a;
            sumBB += b * b;
            sumAB += a * b;
            ++count;
        }
    }
    return {count, distance / count,
            (count * sumAB - sumA * sumB) /
                std::sqrt((count * sumAA - sumA * sumA) * (count * sumBB - sumB * sumB))};
}

/// The pictures side by side, for the documentation.
struct Pairs {
    std::vector<QImage> pictures;
    QStringList captions;
};

void CheckCases(RaytraceRig& rig, std::span<const Case> cases, Pairs& pairs,
                studio::Lens lens = studio::Lens::Perspective)
{
    SphereGrid grid;
    grid.columns = std::min(static_cast<int>(cases.size()), 4);
    grid.cell = kSide;
    grid.yawDegrees = 32.0F;
    grid.pitchDegrees = 24.0F;
    for (const Case& each : cases) {
        grid.materials.push_back(each.material);
    }
    studio::RaytraceScene scene = grid.Scene();
    for (std::size_t i = 0; i < cases.size(); ++i) {
        scene.frame.items[i].coordinates = cases[i].wrapped ? CorvexSG::CoordinateMode::FromWrap
                                                            : CorvexSG::CoordinateMode::FromMesh;
    }
    scene.frame.camera.lens = lens;
    if (lens == studio::Lens::Parallel) {
        // Neither nearer than the eye is nor farther away makes a difference.
        QMatrix4x4 nearer;
        nearer.translate(3.0F * scene.frame.camera.distance * scene.frame.camera.Back());
        scene.frame.items[0].worldFromMesh = nearer * scene.frame.items[0].worldFromMesh;
    }
    const QImage drawn = rig.Draw(scene);
    const auto [raytraced, messages, exitCode] = rig.Raytrace(scene);
    ASSERT_FALSE(raytraced.isNull()) << messages.toStdString();
    EXPECT_FALSE(messages.contains("Parse Warning")) << messages.toStdString();
    scene.frame.items.clear();
    const QImage empty = rig.Draw(scene);
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Case& each = cases[i];
        const QRect cell = grid.Cell(i);
        pairs.pictures.insert(pairs.pictures.end(), {drawn.copy(cell), raytraced.copy(cell)});
        const PictureDifference difference =
            DifferenceOf(drawn.copy(cell), raytraced.copy(cell), empty.copy(cell));
        std::printf("| %-18s | %.2f | %.3f |\n", each.name, difference.mean,
                    difference.correlation);
        EXPECT_GT(difference.pixels, kSide * kSide / 8) << each.name;
        EXPECT_LT(difference.mean, kSanitized ? kLargestMean : each.mean) << each.name;
        EXPECT_GT(difference.correlation, kSanitized ? 0.0 : each.correlation) << each.name;
        pairs.captions << QLatin1String(each.name) << QStringLiteral("POV-Ray");
    }
}

TEST(Comparison, ParallelViewIsTheSameInPovRay)
{
    RaytraceRig rig;
    Pairs pairs;
    const std::vector<Case> cases = Cases(rig);
    CheckCases(rig, std::span(cases).first(2), pairs, studio::Lens::Parallel);
}

TEST(Comparison, PovRayShowsWhatTheViewportShows)
{
    RaytraceRig rig;
    Pairs pairs;
    const std::vector<Case> all = Cases(rig);
    const std::span cases(all);
    CheckCases(rig, cases.first(cases.size() - kSurrounded), pairs);
    for (std::size_t i = cases.size() - kSurrounded; i < cases.size(); ++i) {
        CheckCases(rig, cases.subspan(i, 1), pairs);  // each would be mirrored by the others
    }
    Keep(Sheet(pairs.pictures, 6, pairs.captions), "raytrace-compare.png");
}

/// Rays that a shape's inside sends back to itself are the more the longer they may live.
TEST(Mirrors, HaveAnEndInsideOfAShape)
{
    RaytraceRig rig;
    const std::string grey = rig.Image("g.png", [](int, int) { return QColor(128, 128, 128); });
    const std::string sky = rig.Image("e.png", Sky);
    for (const bool glass : {false, true}) {
        studio::RaytraceScene scene =
            SceneWith({.Transparency = glass ? 80 : 0,
                       .DoubleSided = glass,
                       .Textures = {.specular = grey, .environment = sky}});
        scene.frame.width = scene.frame.height = 32;
        const QString messages = rig.Raytrace(scene, false).messages;
        const QRegularExpression count("Reflected Rays: +(\\d+)");
        const auto found = count.match(messages);
        ASSERT_TRUE(found.hasMatch()) << messages.toStdString();
        EXPECT_LT(found.captured(1).toInt(), 10 * 32 * 32) << (glass ? "glass" : "stone");
    }
}

TEST(Mirrors, AreInsideOnlyWhereBothSidesAreSeen)
{
    RaytraceRig rig;
    const auto count = [&](bool doubleSided) {
        const auto scene = SceneWith(
            {.Transparency = 50, .DoubleSided = doubleSided, .RayTrace = {.Reflection = 5}});
        return QString::fromStdString(rig.PovRayText(scene)).count("reflection {");
    };
    EXPECT_EQ(count(true), 2 * count(false));
}

TEST(Losses, AreToldWithTheirShapes)
{
    SphereGrid grid;
    for (const char* file : {"", "/sky.png", "/room.png", "/sky.png", "/room.png"}) {
        grid.materials.emplace_back().Textures.environment = file;
    }
    grid.materials[4].RayTrace.MaterialType = 1;  // mirrors whatever there is
    grid.materials[0].Textures.bump = "/bump.png";
    grid.materials[0].RayTrace.Brilliance = 7.0F;
    grid.materials[1].RayTrace.ColorPattern = 3;
    grid.materials[1].Textures.primary = "/~CVX1.jpg";
    grid.materials[2].RayTrace.ColorPattern = 3;
    const studio::RaytraceScene scene = grid.Scene();
    const auto note = [&scene](CorvexDB::Raytracer kind) {
        return studio::LossNote(CorvexMaterial::RowOf(kind), scene, {}).toStdString();
    };
    EXPECT_EQ(note(CorvexDB::Raytracer::PovRay),
              "POV-Ray does not show: environment maps but the first (shapes: 1).");
    EXPECT_EQ(note(CorvexDB::Raytracer::RenderMan),
              "RenderMan does not show: brilliance (shapes: 1), color patterns (shapes: 1), "
              "predefined materials (shapes: 1), bump maps (shapes: 1), "
              "textures and environment maps at once (shapes: 1).");
    EXPECT_EQ(studio::LossNote(CorvexMaterial::RowOf(CorvexDB::Raytracer::PovRay), {}, {}), "");
}

}  // namespace
