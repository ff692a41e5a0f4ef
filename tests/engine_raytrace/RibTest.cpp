#include "RaytraceRig.h"
#include "RibReader.h"
#include "StudioSceneExporter.h"

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

QColor Corners(int x, int y)
{
    return {x < 32 ? 250 : 20, y < 32 ? 250 : 20, 4 * ((x + y) % 32)};
}

class Rib : public testing::Test {
protected:
    RibFile Written(const udtMaterial& material)
    {
        RibFile file = ReadRib(rig.RibText(SceneWith(material)));
        CheckParameters(Surface(file));
        return file;
    }
    /// The surface of the only shape; that of the backdrop comes before.
    static const RibRequest& Surface(const RibFile& file) { return *file.All("Surface").back(); }
    /// Each with its type, and only those that the standard's shader has.
    static void CheckParameters(const RibRequest& surface)
    {
        static const std::map<std::string, std::string> kShaders{
            {"matte", "Ka Kd"},
            {"metal", "Ka Ks roughness"},
            {"shinymetal", "Ka Ks roughness Kr texturename"},
            {"plastic", "Ka Kd Ks roughness specularcolor"},
            {"paintedplastic", "Ka Kd Ks roughness specularcolor texturename"},
        };
        for (std::size_t i = 1; i < surface.arguments.size(); i += 2) {
            const std::string declaration = surface.Text(i);
            const std::size_t blank = declaration.find(' ');
            ASSERT_NE(blank, std::string::npos) << "no type: " << declaration;
            EXPECT_THAT(kShaders.at(surface.Text()),
                        testing::HasSubstr(declaration.substr(blank + 1)));
        }
    }
    static float Value(const RibFile& file, const char* parameter)
    {
        const RibArgument* value = Surface(file).Parameter(parameter);
        return value ? value->numbers.at(0) : -1.0F;
    }

    QImage Painted(const RibFile& file)
    {
        const RibArgument& name = *Surface(file).Parameter("texturename");
        return QImage(rig.Folder().PathOf(QString::fromStdString(name.strings.at(0))));
    }

    RaytraceRig rig;
    std::string image = rig.Image("картинка.png", Corners);
};

TEST_F(Rib, ChoosesAStandardShaderThatSaysMost)
{
    const std::string simulation = rig.Image("~CVX7.jpg", Corners);
    struct Look {
        const char* name;
        udtMaterial material;
        const char* shader;
    };
    const CorvexDB::TextureFiles both{.primary = image, .environment = image};
    const CorvexDB::cdtRayTraceMaterialAttributes stone{.MaterialType = 1, .PredefinedType = 2};
    const Look looks[] = {
        {"dull", {}, "matte"},
        {"shiny", {.Specular = 50}, "plastic"},
        {"mirror without surroundings",
         {.RayTrace = {.Reflection = 10, .Metallic = true}},
         "metal"},
        {"mirror", {.Textures = {.environment = image}}, "shinymetal"},
        {"painted", {.Textures = {.overlay = image}}, "paintedplastic"},
        {"painted, mirrors a little", {.Textures = both}, "paintedplastic"},
        {"painted, mirrors all", {.Textures = both, .RayTrace = {.Reflection = 9}}, "shinymetal"},
        {"stock stone in place of its images", {.Textures = both, .RayTrace = stone}, "plastic"},
        {"picture of a stock stone",
         {.Textures = {.primary = simulation}, .RayTrace = stone},
         "paintedplastic"},
    };
    for (const Look& look : looks) {
        SCOPED_TRACE(look.name);
        EXPECT_EQ(Surface(Written(look.material)).Text(), look.shader);
    }
}

TEST_F(Rib, ReflectionGoesFromTheBodyToWhatIsMirrored)
{
    for (const bool surrounded : {false, true}) {
        const auto mirror = [&](float position) {
            return Written({.Textures = {.environment = surrounded ? image : std::string()},
                            .RayTrace = {.Reflection = position}});
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
        const RibFile file =
            Written({.Color = 0x0000FF,
                     .Textures = {.primary = primary},
                     .RayTrace = {.ColorPattern = 5,
                                  .ColorPatternColor = {{{1, 1, 1, 0}, {0, 0, 0, 0}, {}, {}}}}});
        EXPECT_FLOAT_EQ(file.Find("Color")->Numbers().at(1), 0.0F);
        return file.Find("Color")->Numbers().at(0);
    };
    EXPECT_FLOAT_EQ(colour({}), 0.5F) << "two squares of a checker, not four colours";
    EXPECT_FLOAT_EQ(colour(image), 0.5F);
    EXPECT_FLOAT_EQ(colour(rig.Image("~CVX8.jpg", Corners)), 1.0F) << "the picture has it already";
}

QVector3D VectorAt(const std::vector<float>& numbers, std::size_t index)
{
    return {numbers.at(3 * index), numbers.at(3 * index + 1), numbers.at(3 * index + 2)};
}

TEST_F(Rib, HasTheAmountsOfTheMaterial)
{
    const RibFile file = Written({.Specular = 50, .Transparency = 75, .DoubleSided = true});
    EXPECT_THAT(file.Find("Opacity")->Numbers(), testing::Each(testing::FloatEq(0.25F)));
    EXPECT_FLOAT_EQ(Value(file, "roughness"), 1.0F / 60.0F);
    const RibFile rough = Written({.Specular = 50, .RayTrace = {.Roughness = 9}});
    EXPECT_GT(Value(rough, "roughness"), 2.0F / 60.0F);
    const RibFile glass = Written({.RayTrace = {.MaterialType = 1}});
    EXPECT_LT(glass.Find("Opacity")->Numbers().at(0), 0.9F);
    EXPECT_EQ(file.All("Sides").back()->Numbers(), std::vector{2.0F});
    EXPECT_EQ(rough.All("Sides").back()->Numbers(), std::vector{1.0F});
}

TEST_F(Rib, SeesAndLightsTheSceneAsTheViewportDoes)
{
    studio::RaytraceScene scene = SceneWith({});
    scene.frame.width = 96;
    scene.frame.height = 64;
    scene.frame.backdrop = studio::Backdrop::Gradient;
    const RibFile file = ReadRib(rig.RibText(scene));
    const studio::Camera& camera = scene.frame.camera;
    EXPECT_EQ(file.Find("Format")->Numbers(), (std::vector{96.0F, 64.0F, 1.0F}));
    EXPECT_FLOAT_EQ(file.Find("Projection")->Parameter("fov")->numbers.at(0), 30.0F);

    // To x right, y up and z away.
    QMatrix4x4 eye;
    eye.scale(VectorAt(file.Find("Scale")->Numbers(), 0));
    eye *= QMatrix4x4(file.Find("ConcatTransform")->Numbers().data()).transposed();
    const auto near = [](const QVector3D& one, const QVector3D& other) {
        return (one - other).length() < 1.0e-4F;
    };
    const QVector3D middle(0.0F, 0.0F, camera.distance);
    EXPECT_TRUE(near(eye.map(camera.target), middle));
    EXPECT_TRUE(near(eye.map(camera.target + camera.Right()), middle + QVector3D(1, 0, 0)));
    EXPECT_TRUE(near(eye.map(camera.target + camera.Up()), middle + QVector3D(0, 1, 0)));

    const auto from = [&](std::size_t light) {
        return eye.mapVector(
            VectorAt(file.All("LightSource").at(light)->Parameter("from")->numbers, 0));
    };
    const QVector3D key = from(1);
    EXPECT_TRUE(key.x() < -0.2F && key.y() > 0.2F && key.z() < -0.2F) << "upper left, in front";
    EXPECT_TRUE(from(2).x() > 0.2F && from(2).z() < -0.2F) << "right, in front";
    EXPECT_GT(from(3).y(), 0.9F) << "the sky";

    const auto strips = file.All("Polygon");
    const std::vector<float> upper = strips.front()->Parameter("Cs")->numbers;
    const std::vector<float> lower = strips.back()->Parameter("Cs")->numbers;
    EXPECT_GT(upper[0], lower[0]) << "lighter above";
    for (const auto* strip : {strips.front(), strips.back()}) {
        for (std::size_t corner = 0; corner < 4; ++corner) {
            EXPECT_GT(eye.map(VectorAt(strip->Parameter("P")->numbers, corner)).z(),
                      camera.distance + 1.0F);
        }
    }
}

TEST_F(Rib, SeesAParallelViewAsTheViewportDoes)
{
    studio::RaytraceScene scene = SceneWith({});
    scene.frame.width = 96;
    scene.frame.height = 64;
    studio::Camera& camera = scene.frame.camera;
    camera.lens = studio::Lens::Parallel;
    scene.frame.items.push_back(scene.frame.items.front());
    scene.frame.items.back().worldFromMesh.translate(2.0F * camera.distance * camera.Back());
    scene.names.push_back("behind the eye");
    const RibFile file = ReadRib(rig.RibText(scene));
    EXPECT_EQ(file.Find("Projection")->Text(), "orthographic");
    QMatrix4x4 eye;
    eye.scale(VectorAt(file.Find("Scale")->Numbers(), 0));
    eye *= QMatrix4x4(file.Find("ConcatTransform")->Numbers().data()).transposed();
    // -1 to 1 is the smaller side.
    const QSizeF size(96, 64);
    const QVector3D corner = eye.map(camera.RayThrough({0, 0}, size).origin);
    EXPECT_NEAR(corner.x(), -1.5F, 1.0e-4F);
    EXPECT_NEAR(corner.y(), 1.0F, 1.0e-4F);
    for (const studio::FrameItem& item : scene.frame.items) {
        for (const QVector3D& point : studio::WorldBounds(item).Corners()) {
            EXPECT_GT(eye.map(point).z(), 0.0F);
        }
    }
}

struct Polygon {
    QVector2D place;  ///< its middle
    QVector2D image;  ///< and that in the image
};

std::vector<Polygon> PolygonsOf(const RibRequest& mesh)
{
    const std::vector<float>& st = mesh.Parameter("st")->numbers;
    const std::vector<float>& corners = mesh.arguments[1].numbers;
    std::vector<Polygon> polygons;
    std::size_t corner = 0;
    for (const float count : mesh.arguments[0].numbers) {
        Polygon polygon;
        for (int i = 0; i < static_cast<int>(count); ++i, ++corner) {
            const auto point = static_cast<std::size_t>(corners[corner]);
            polygon.place += VectorAt(mesh.Parameter("P")->numbers, point).toVector2D() / count;
            polygon.image += QVector2D(st.at(2 * corner), st.at(2 * corner + 1)) / count;
        }
        polygons.push_back(polygon);
    }
    return polygons;
}

TEST_F(Rib, PutsImagesWhereCropFlipAndTilesDo)
{
    // The image is there 1.5 times in each direction, from the upper left.
    const auto plane =
        studio::ParametricMesh([](float u, float v) { return QVector3D(u, v, 0.0F); }, {1, 1});
    std::vector<studio::Vertex> vertices = plane->vertices;
    for (studio::Vertex& vertex : vertices) {
        vertex.uv = {1.5F * vertex.uv[0], 1.5F * vertex.uv[1] - 0.5F};
    }
    const auto mesh = studio::MakeMesh(vertices, plane->indices);
    for (const bool flip : {false, true}) {
        studio::RaytraceScene scene = SceneWith({.WrapOrientationV = flip,
                                                 .Textures = {.primary = image},
                                                 .Placement = {0.3F, 0.4F, -0.5F, 1.4F}},
                                                mesh);
        scene.frame.items.front().coordinates = CorvexSG::CoordinateMode::FromMesh;
        const RibFile file = ReadRib(rig.RibText(scene));
        const QImage tile = Painted(file);
        const auto polygons = PolygonsOf(*file.All("PointsPolygons").back());
        EXPECT_GE(polygons.size(), 6U);
        for (const auto& [place, st] : polygons) {
            const auto part = [](float tiles) { return tiles - std::floor(tiles); };
            const float across = part(1.5F * place.x());
            const float down = part(1.5F * (1.0F - place.y()));
            const QColor painted = tile.pixelColor(
                QTransform::fromScale(tile.width(), tile.height()).map(st.toPointF()).toPoint());
            EXPECT_EQ(painted.red() > 100, part(0.3F - 0.5F * across) < 0.5F) << across;
            EXPECT_EQ(painted.green() > 100, part(0.4F + 1.4F * (flip ? 1.0F - down : down)) < 0.5F)
                << down << ' ' << flip;
        }
    }
}

/// As a renderer takes it that knows coordinates and images alone.
std::shared_ptr<const studio::Mesh> MeshOf(const RibRequest& polygons)
{
    const auto vector = [&](const char* name, std::size_t at) {
        const QVector3D v = VectorAt(polygons.Parameter(name)->numbers, at);
        return std::array{v.x(), v.y(), v.z()};
    };
    const std::vector<float>& st = polygons.Parameter("st")->numbers;
    const std::vector<float>& corners = polygons.arguments[1].numbers;
    std::vector<studio::Vertex> vertices;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const auto point = static_cast<std::size_t>(corners[i]);
        vertices.push_back(
            {vector("P", point), vector("N", point), {st[2 * i], 1.0F - st[2 * i + 1]}});
    }
    std::vector<std::uint32_t> indices;
    std::uint32_t first = 0;
    for (const float count : polygons.arguments[0].numbers) {
        const auto end = first + static_cast<std::uint32_t>(count);
        for (std::uint32_t last = first + 2; last < end; ++last) {
            indices.insert(indices.end(), {first, last - 1, last});
        }
        first = end;
    }
    return studio::MakeMesh(std::move(vertices), std::move(indices));
}

TEST_F(Rib, PutsImagesWhereAPlacedWrapDoes)
{
    using CorvexDB::WrapType;
    for (const WrapType wrap : {WrapType::Spherical, WrapType::Flat, WrapType::Cylindrical}) {
        for (const float width : {0.0F, 1.5F}) {
            udtMaterial material{.Ambient = 0,
                                 .Emissive = 100,
                                 .Wrap = wrap,
                                 .Textures = {.primary = rig.Image("f.png", [](int x, int y) {
                                     return QColor(x < 32 ? 255 : 0, y < 32 ? 255 : 0, 255);
                                 })}};
            material.TextureRotation = 30.0F;
            material.TextureWidth = width;
            material.Projection = {0.3F, 0.2F, -0.1F, 20.0F, 40.0F, -15.0F};
            studio::RaytraceScene scene = SceneWith(material);
            scene.frame.items.front().coordinates = CorvexSG::CoordinateMode::FromWrap;
            const RibFile file = ReadRib(rig.RibText(scene));
            const QImage drawn = rig.Draw(scene);
            udtMaterial plain{.Ambient = 0, .Emissive = 100};
            plain.Textures.primary = rig.Folder()
                                         .PathOf(QString::fromStdString(
                                             Surface(file).Parameter("texturename")->strings.at(0)))
                                         .toStdString();
            studio::RaytraceScene known =
                SceneWith(plain, MeshOf(*file.All("PointsPolygons").back()));
            known.frame.items.front().coordinates = CorvexSG::CoordinateMode::FromMesh;
            const QImage again = rig.Draw(known);
            Keep(
                Sheet({drawn, again}, 2),
                qPrintable(QStringLiteral("rib-%1-%2.png").arg(static_cast<int>(wrap)).arg(width)));
            double apart = 0.0;
            for (int i = 0; i < drawn.width() * drawn.height(); ++i) {
                const QPoint at(i % drawn.width(), i / drawn.width());
                apart += Distance(drawn.pixel(at), again.pixel(at));
            }
            EXPECT_LT(apart / (drawn.width() * drawn.height()), 3.0)
                << static_cast<int>(wrap) << ' ' << width;
        }
    }
}

TEST_F(Rib, KeepsTheStepsOfDarkImages)
{
    const std::string dark = rig.Image("d.png", [](int, int) { return QColor(8, 8, 8); });
    const RibFile file = Written({.Textures = {.primary = dark}});
    EXPECT_NEAR(static_cast<double>(Painted(file).pixelColor(9, 9).redF()), 8.0 / 255.0 / 12.92,
                2.0e-5);
}

TEST_F(Rib, HasEachEnvironmentMapMadeBeforeTheWorld)
{
    studio::RaytraceScene scene = SceneWith({.Textures = {.environment = image}});
    scene.frame.items.push_back(scene.frame.items.front());
    const RibFile file = ReadRib(rig.RibText(scene));
    const auto made = file.All("MakeLatLongEnvironment");
    ASSERT_EQ(made.size(), 1U);
    EXPECT_LT(made.front(), file.Find("WorldBegin"));
    EXPECT_TRUE(QFile::exists(rig.Folder().PathOf(QString::fromStdString(made.front()->Text()))));
    EXPECT_EQ(made.front()->Text(1), Surface(file).Parameter("texturename")->strings.at(0));
}

TEST_F(Rib, AFlatSampleFillsItsPictureWithOneColour)
{
    const CorvexDB::PatternColour green{0.0F, 1.0F, 0.0F};
    studio::RaytraceScene scene = studio::FlatSampleOf(SceneWith(
        {.Specular = 100,
         .Transparency = 80,
         .RayTrace = {.ColorPattern = 1, .ColorPatternColor = {green, green, green, green}}}));
    scene.frame.width = 60;
    scene.frame.height = 20;
    const RibFile file = ReadRib(rig.RibText(scene));
    EXPECT_EQ(file.Find("Projection")->Text(), "orthographic");
    EXPECT_EQ(file.Find("Opacity")->Numbers(), std::vector(3, 1.0F));
    EXPECT_EQ(file.Find("Scale")->Numbers(), (std::vector{3.0F, 1.0F, -1.0F}));
    EXPECT_EQ(file.Find("Color")->Numbers(), (std::vector{0.0F, 1.0F, 0.0F}));
    EXPECT_EQ(Surface(file).Text(), "matte") << "a highlight would lie over all of it";
}

TEST_F(Rib, AnExportNamesAPictureBesideItAndAJobTheOneThatIsLookedFor)
{
    studio::RaytraceScene scene = SceneWith({});
    EXPECT_EQ(ReadRib(rig.RibText(scene)).Find("Display")->Text(), "scene.tif");
    scene.picture = "~CVX1.bmp";
    EXPECT_EQ(ReadRib(rig.RibText(scene)).Find("Display")->Text(), "~CVX1.bmp");
}

}  // namespace
