#include "studio/raytrace/StudioSceneExporter.h"
#include "studio/scene/ParametricMesh.h"
#include "tests/studio_raytrace/PictureDifference.h"
#include "tests/studio_raytrace/RaytraceRig.h"
#include "tests/studio_raytrace/RibPainter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;
using testing::IsEmpty;

QColor Corners(int x, int y)
{
    return {x < 32 ? 250 : 20, y < 32 ? 250 : 20, 4 * ((x + y) % 32)};
}

class Rib : public testing::Test {
protected:
    RibFile Written(const Change& change)
    {
        RibFile file = ReadRib(rig.RibText(SceneWith(Sphere(), change)));
        EXPECT_THAT(file.faults, IsEmpty());
        return file;
    }
    /// The surface of the only shape; that of the backdrop comes before.
    static const RibRequest& Surface(const RibFile& file)
    {
        const auto last = std::find_if(file.requests.rbegin(), file.requests.rend(),
                                       [](const auto& r) { return r.name == "Surface"; });
        return *last;
    }
    static float Value(const RibFile& file, const char* parameter)
    {
        const RibArgument* value = Surface(file).Parameter(parameter);
        return value ? value->numbers.at(0) : -1.0F;
    }

    RaytraceRig rig;
    std::string image = rig.Image("картинка.png", Corners);
};

TEST_F(Rib, ChoosesAStandardShaderThatSaysMost)
{
    const std::string simulation = rig.Image("~CVX7.jpg", Corners);
    struct Look {
        const char* name;
        Change change;
        const char* shader;
    };
    const auto stone = [](udtMaterial& m) {
        m.RayTrace.MaterialType = 1;
        m.RayTrace.PredefinedType = 2;
    };
    const std::vector<Look> looks{
        {"dull", [](udtMaterial&) {}, "matte"},
        {"shiny", [](udtMaterial& m) { m.Specular = 50; }, "plastic"},
        {"mirror without surroundings",
         [](udtMaterial& m) {
             m.RayTrace.Reflection = 10;
             m.RayTrace.Metallic = true;
         },
         "metal"},
        {"mirror", [&](udtMaterial& m) { m.Textures.environment = image; }, "shinymetal"},
        {"painted", [&](udtMaterial& m) { m.Textures.overlay = image; }, "paintedplastic"},
        {"painted, mirrors a little",
         [&](udtMaterial& m) { m.Textures.primary = m.Textures.environment = image; },
         "paintedplastic"},
        {"painted, mirrors all",
         [&](udtMaterial& m) {
             m.Textures.primary = m.Textures.environment = image;
             m.RayTrace.Reflection = 9;
         },
         "shinymetal"},
        {"stock stone in place of its images",
         [&](udtMaterial& m) {
             stone(m);
             m.Textures.primary = m.Textures.environment = image;
         },
         "plastic"},
        {"picture of a stock stone",
         [&](udtMaterial& m) {
             stone(m);
             m.Textures.primary = simulation;
         },
         "paintedplastic"},
    };
    for (const Look& look : looks) {
        SCOPED_TRACE(look.name);
        EXPECT_EQ(Surface(Written(look.change)).Text(), look.shader);
    }
}

TEST_F(Rib, ReflectionGoesFromTheBodyToWhatIsMirrored)
{
    for (const bool surrounded : {false, true}) {
        const auto mirror = [&](float position) {
            return Written([&](udtMaterial& m) {
                m.RayTrace.Reflection = position;
                m.Textures.environment = surrounded ? image : std::string();
            });
        };
        const RibFile some = mirror(4);
        const RibFile more = mirror(8);
        EXPECT_LT(Value(more, "Ka"), Value(some, "Ka"));
        EXPECT_GT(Value(more, "Ks"), Value(some, "Ks"));
        EXPECT_FLOAT_EQ(Value(more, "Kr"), surrounded ? 0.8F : -1.0F);
    }
}

TEST_F(Rib, APatternsColourIsItsOwnAndNoImagesPartOfIt)
{
    const auto colour = [&](const std::string& primary) {
        const RibFile file = Written([&](udtMaterial& m) {
            m.Color = 0x0000FF;
            m.RayTrace.ColorPattern = 5;
            m.RayTrace.ColorPatternColor = {{{1, 1, 1, 0}, {0, 0, 0, 0}, {}, {}}};
            m.Textures.primary = primary;
        });
        EXPECT_FLOAT_EQ(file.Find("Color")->Numbers().at(1), 0.0F);
        return file.Find("Color")->Numbers().at(0);
    };
    EXPECT_FLOAT_EQ(colour({}), 0.5F) << "two squares of a checker, not four colours";
    EXPECT_FLOAT_EQ(colour(image), 0.5F);
    EXPECT_FLOAT_EQ(colour(rig.Image("~CVX8.jpg", Corners)), 1.0F) << "the picture has it already";
}

struct Painted {
    const char* name;
    std::shared_ptr<const studio::Mesh> mesh;
    Change change;
    CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh;
    QSize size{96, 64};
};

/// Glowing surfaces look the same under every light, so the plainest renderer can judge where
/// everything lies.
TEST_F(Rib, IsPaintedAsTheViewportDrawsIt)
{
    using enum CorvexSG::CoordinateMode;
    const auto sphere = Sphere();
    const auto box = studio::RoundedCubeMesh(1.0F, 0.1F);
    const std::string other = rig.Image("o.png", [](int x, int y) {
        return QColor(60, 90, 240, std::hypot(x - 32, y - 32) < 20 ? 255 : 0);
    });
    const auto crop = [](udtMaterial& m) {
        m.Placement = {0.5F, 0.25F, -0.5F, 1.5F};
        m.WrapOrientationV = true;
    };
    const std::vector<Painted> rows{
        {"coloured", box, [](udtMaterial& m) { m.Color = 0x3080F0; }},
        {"textured", box, [&](udtMaterial&) {}, FromMesh, {64, 96}},
        {"cropped", box, crop},
        {"tinted, overlaid", sphere,
         [&](udtMaterial& m) {
             m.Color = 0x80C0FF;
             m.Textures.overlay = other;
             m.OverlayTranslucency = 25.0F;
         }},
        {"tiled", box,
         [&](udtMaterial& m) {
             crop(m);
             m.Wrap = CorvexDB::WrapType::Flat;
             m.TilesPerUnit = 0.8F;
         },
         FromWrap},
        {"around", sphere, [&](udtMaterial& m) { m.Wrap = CorvexDB::WrapType::Cylindrical; },
         FromWrap},
    };
    std::vector<QImage> pictures;
    for (const Painted& row : rows) {
        studio::RaytraceScene scene = SceneWith(row.mesh, [&](udtMaterial& m) {
            m.Emissive = 100;
            m.Textures.primary = row.name == std::string("coloured") ? std::string() : image;
            row.change(m);
        });
        scene.frame.items.front().coordinates = row.coordinates;
        scene.frame.width = row.size.width();
        scene.frame.height = row.size.height();
        scene.frame.backdrop = studio::Backdrop::Gradient;
        const QImage drawn = rig.Draw(scene);
        const RibFile file = ReadRib(rig.RibText(scene));
        EXPECT_THAT(file.faults, IsEmpty());
        const QImage painted = PaintRib(file, rig.Folder());
        QImage everywhere(row.size, QImage::Format_Mono);
        everywhere.fill(1);
        EXPECT_LT(DifferenceOf(drawn, painted, everywhere).mean, 5.0) << row.name;
        pictures.push_back(drawn.scaled(96, 96, Qt::KeepAspectRatio).copy(0, 0, 96, 96));
        pictures.push_back(painted.scaled(96, 96, Qt::KeepAspectRatio).copy(0, 0, 96, 96));
    }
    Keep(Sheet(pictures, 4), "rib.png");
}

TEST_F(Rib, AFlatSampleFillsItsPictureWithOneColour)
{
    const studio::RaytraceScene shape = SceneWith(Sphere(), [](udtMaterial& m) {
        m.Emissive = 100;
        m.Specular = 100;
        m.RayTrace.ColorPattern = 1;
        m.RayTrace.ColorPatternColor.fill({0.0F, 1.0F, 0.0F, 0.0F});
    });
    for (const QSize size : {QSize(60, 20), QSize(20, 60)}) {
        studio::RaytraceScene scene = studio::FlatSampleOf(shape);
        scene.frame.width = size.width();
        scene.frame.height = size.height();
        const RibFile file = ReadRib(rig.RibText(scene));
        EXPECT_THAT(file.faults, IsEmpty());
        QImage green(size, QImage::Format_RGB32);
        green.fill(Qt::green);
        EXPECT_EQ(PaintRib(file, rig.Folder()), green);
    }
}

TEST_F(Rib, WithADisplacementOrAnythingElseUnsaidIsRefusedByTheReader)
{
    const std::string good = rig.RibText(SceneWith(Sphere(), [&](udtMaterial& m) {
        m.Textures.primary = image;
        m.Transparency = 75;
        m.DoubleSided = true;
    }));
    const RibFile file = ReadRib(good);
    EXPECT_THAT(file.faults, IsEmpty());
    EXPECT_THAT(file.Find("Opacity")->Numbers(), testing::Each(testing::FloatEq(0.25F)));
    EXPECT_FLOAT_EQ(file.Find("Projection")->Parameter("fov")->numbers.at(0), 30.0F);
    struct Spoilt {
        const char* found;
        const char* instead;
        const char* fault;
    };
    for (const auto& [found, instead, fault] : {
             Spoilt{"##RenderMan RIB-Structure 1.1\n", "", "no header"},
             {"version 3.03", "version 3", "version"},
             {"Display", "Option \"x\" \"a b\" [1]\n#", "Display is missing"},
             {"PixelSamples 3 3", "", "PixelSamples is missing"},
             {"Format ", "ScreenWindow -1 1 -1 1\nFormat ", "ScreenWindow"},
             {"WorldBegin", "WorldBegin\nPixelSamples 2 2", "too late"},
             {"Scale 1 1 -1", "Scale 1 1 1", "z comes out"},
             {"Sides 2", "Sides 3", "Sides"},
             {"\"float Kd\"", "\"Kd\"", "no type"},
             {"\"float Kd\" [", "\"float Kd\" ", "bracket"},
             {"\"paintedplastic\"", "'paintedplastic'", "no number"},
             {"\"paintedplastic\"", "\"glass\"", "unknown shader"},
             {"\"paintedplastic\"", "\"metal\"", "unknown parameter: Kd"},
             {"Opacity [0.25 0.25 0.25]", "Opacity [0.25]", "Opacity"},
             {"\"scene_textures", "\"/scene_textures", "not found"},
             {"\"N\" [", "\"N\" [0 ", "not one N a P"},
             {"facevarying float[2] st", "varying float[2] st", "not one st"},
             {"PointsPolygons [3", "PointsPolygons [4", "do not add up"},
             {"Surface \"painted", "Displacement \"d\"\nSurface \"painted", "no bound"},
             {"AttributeEnd\nWorldEnd", "WorldEnd", "ends what did not"},
             {"WorldEnd", "", "left open"},
             {"1 1 -1", "1 nan -1", "nan"},
         }) {
        std::string spoilt = good;
        const std::size_t at = spoilt.find(found);
        ASSERT_NE(at, std::string::npos) << found;
        spoilt.replace(at, std::string_view(found).size(), instead);
        EXPECT_THAT(ReadRib(spoilt).faults, testing::Contains(testing::HasSubstr(fault)))
            << instead;
    }
}

TEST_F(Rib, AnExportNamesAPictureBesideItAndAJobTheOneThatIsLookedFor)
{
    studio::RaytraceScene scene = SceneWith(Sphere(), [](udtMaterial&) {});
    EXPECT_EQ(ReadRib(rig.RibText(scene)).Find("Display")->Text(), "scene.tif");
    scene.picture = "~CVX1.bmp";
    EXPECT_EQ(ReadRib(rig.RibText(scene)).Find("Display")->Text(), "~CVX1.bmp");
}

}  // namespace
