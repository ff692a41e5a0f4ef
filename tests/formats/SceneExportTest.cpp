#include "EmbeddedPictures.h"
#include "Formats.h"
#include "FullDisk.h"
#include "Interchange.h"
#include "MeshShading.h"
#include "ModelShapes.h"
#include "ParametricMesh.h"
#include "PlacedMesh.h"
#include "RenderService.h"
#include "SampleFolder.h"
#include "Testing.h"
#include "UnitVector.h"

// Scenes out into a file and in again: the same is seen, and known by the same names.

namespace {

using studio::AppliedMaterial;
using studio::StudioShape;
using Shapes = studio::StudioScene::Shapes;

/// Twelve triangles, over which a round wrap bends.
std::shared_ptr<const studio::Mesh> Cube()
{
    std::vector<studio::Vertex> corners(8);
    for (std::size_t i = 0; i < 8; ++i) {
        const auto at = [i](unsigned axis) { return ((i >> axis) & 1U) != 0 ? 1.0F : -1.0F; };
        corners[i] = {{at(0), at(1), at(2)}, {0, 1, 0}, {at(0), at(1)}};
    }
    return studio::WithFlatNormals(
        *studio::MakeMesh(corners, {0, 2, 1, 1, 2, 3, 4, 5, 6, 5, 7, 6, 0, 1, 4, 1, 5, 4,
                                    2, 6, 3, 3, 6, 7, 0, 4, 2, 2, 4, 6, 1, 3, 5, 3, 7, 5}));
}

AppliedMaterial Named(const char* name, const CorvexDB::udtMaterial& material,
                      CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh)
{
    AppliedMaterial applied = studio::WholeMaterial(material, coordinates);
    applied.identity = std::make_shared<studio::SceneMaterial>(studio::SceneMaterial{name, {}});
    return applied;
}

std::shared_ptr<StudioShape> Shape(const char* name,
                                   const std::shared_ptr<const studio::Mesh>& mesh,
                                   const AppliedMaterial& applied, const QMatrix4x4& place = {})
{
    auto shape = std::make_shared<StudioShape>(name, mesh, applied);
    shape->SetWorldFromMesh(place);
    return shape;
}

studio::Mesh InWorld(const StudioShape& shape)
{
    studio::Mesh mesh;
    studio::AppendPlaced(*shape.SharedMesh(), shape.WorldFromMesh(), mesh.vertices, mesh.indices);
    return mesh;
}

/// How many pixels of a thousand look different.
int Different(const QImage& one, const QImage& other)
{
    constexpr int kSeen = 80;
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int apart =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                          std::abs(a.blue() - b.blue())});
            count += apart > kSeen ? 1 : 0;
        }
    }
    return 1000 * count / (one.width() * one.height());
}

class SceneExport : public testing::TestWithParam<const char*> {
protected:
    [[nodiscard]] Shapes Through(const Shapes& shapes)
    {
        const std::string file = m_folder.PathOf("scene").toStdString() + GetParam();
        studio::ExportScene(file, shapes, m_report);
        studio::ImportedModel model = studio::ReadModel(file);
        studio::TakeOutPictures(model, m_folder.PathOf("out").toStdString());
        m_meshes = model.meshes;
        return studio::ShapesOf(model);
    }
    [[nodiscard]] QImage Picture(const Shapes& shapes, const studio::Camera& camera)
    {
        studio::StudioScene scene;
        scene.SetShapes(shapes);
        studio::Frame frame;
        frame.camera = camera;
        frame.width = frame.height = 160;
        scene.Fill(frame);
        return m_rendering.DrawNow(std::move(frame)).convertToFormat(QImage::Format_RGB32);
    }

    [[nodiscard]] bool IsObj() const { return std::string(GetParam()) == ".obj"; }

    CorvexTest::SampleFolder m_folder;
    studio::RenderService m_rendering;
    studio::Report m_report;
    std::vector<studio::ImportedMesh> m_meshes;
};

TEST_P(SceneExport, KeepsPlacesNormalsMaterialsAndNames)
{
    QMatrix4x4 mirrored;
    mirrored.translate(5.0F, 1.0e-5F, -2.0F);
    mirrored.rotate(30.0F, 1.0F, 2.0F, 3.0F);
    mirrored.scale(-1.0F, 2.0F, 0.5F);
    QMatrix4x4 slanted;
    slanted(0, 1) = 0.7F;
    CorvexDB::udtMaterial red;
    red.Color = 0x0000FF;
    red.Specular = 30;
    const auto cube = Cube();
    const AppliedMaterial shared = Named("K\u00e4fer rot", red);
    const Shapes out{Shape("Mittel \u00c4 #1", cube, shared),
                     Shape("b\nf 1 2 3", cube, shared, mirrored),
                     Shape("Mittel_\u00c4_#1", cube, Named("plain", {}), slanted),
                     Shape("empty", nullptr, shared)};
    const Shapes in = Through(out);
    ASSERT_EQ(in.size(), 3U);
    for (std::size_t i = 0; i < in.size(); ++i) {
        SCOPED_TRACE(out[i]->Name());
        const studio::Mesh is = InWorld(*in[i]);
        const studio::Mesh should = InWorld(*out[i]);
        ASSERT_EQ(is.indices.size(), should.indices.size());
        for (std::size_t first = 0; first < is.indices.size(); first += 3) {
            const auto at = [&](std::size_t corner) {
                const auto& [x, y, z] = is.vertices[is.indices[first + corner]].position;
                return QVector3D(x, y, z);
            };
            const auto& [x, y, z] = is.vertices[is.indices[first]].normal;
            const QVector3D front = studio::FaceNormal(at(0), at(1), at(2));
            ASSERT_GT(QVector3D::dotProduct(front, {x, y, z}), 0.5F) << "a back in front";
        }
        for (std::size_t corner = 0; corner < is.indices.size(); ++corner) {
            const studio::Vertex& a = is.vertices[is.indices[corner]];
            const studio::Vertex& b = should.vertices[should.indices[corner]];
            for (std::size_t axis = 0; axis < 3; ++axis) {
                ASSERT_NEAR(a.position[axis], b.position[axis], 1e-5F);
                ASSERT_NEAR(a.normal[axis], b.normal[axis], 1e-5F);
            }
            ASSERT_NEAR(a.uv[0], b.uv[0], 1e-6F);
            ASSERT_NEAR(a.uv[1], b.uv[1], 1e-6F);
        }
        EXPECT_EQ(in[i]->Material().Color, out[i]->Material().Color);
        EXPECT_EQ(in[i]->Material().Specular, out[i]->Material().Specular);
    }
    EXPECT_TRUE(in[2]->WorldFromMesh().isIdentity()) << "many readers know no slanted matrix";
    const bool isObj = IsObj();
    EXPECT_EQ(in[0]->Name(), isObj ? "Mittel_\u00c4__1" : "Mittel \u00c4 #1");
    EXPECT_EQ(in[1]->Name(), isObj ? "b_f_1_2_3" : "b f 1 2 3");
    EXPECT_EQ(in[2]->Name(), isObj ? "Mittel_\u00c4__1_2" : "Mittel_\u00c4_#1");
    EXPECT_EQ(in[0]->Applied().identity->name, isObj ? "K\u00e4fer_rot" : "K\u00e4fer rot");
    EXPECT_EQ(in[0]->Applied().identity, in[1]->Applied().identity);
    if (!isObj) {
        EXPECT_EQ(in[0]->SharedMesh(), in[1]->SharedMesh());
    }
    const auto row = std::ranges::find(m_report.Rows(), "empty", &studio::ReportRow::material);
    ASSERT_NE(row, m_report.Rows().end());
    EXPECT_EQ(row->outcome, studio::Outcome::Dropped);
}

TEST_P(SceneExport, ShowsWhatWasShownHoweverItIsWrapped)
{
    // Of a type that glTF does not know; every place has a colour of its own.
    QImage image(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            image.setPixelColor(x, y, QColor(x * 4, y * 4, (x / 8 + y / 8) % 2 * 255));
        }
    }
    const std::string file = m_folder.Save("colours.bmp", image).toStdString();
    QMatrix4x4 turned;
    turned.rotate(25.0F, 1.0F, 1.0F, 0.0F);
    turned.scale(1.0F, 1.5F, 0.7F);
    QMatrix4x4 aside;
    aside.translate(3.0F, 0.0F, 0.0F);
    for (int kind = 0; kind < 8; ++kind) {
        SCOPED_TRACE(kind);
        CorvexDB::udtMaterial material;
        material.Textures.primary = file;
        // Glowing, for formats differ in what they make of light.
        material.Emissive = 100;
        material.Specular = 0;
        material.Wrap = static_cast<CorvexDB::WrapType>(kind % 3);
        material.TilesPerUnit = 2.0F;
        material.WrapOrientationU = kind >= 3;
        material.WrapOrientationV = kind >= 6;
        const bool isCropped = kind == 4 || kind == 5;
        if (isCropped) {
            material.Placement = {0.25F, 0.125F, 0.5F, 0.5F};
        }
        AppliedMaterial applied = Named("worn", material, CorvexSG::CoordinateMode::FromWrap);
        Shapes out{
            Shape("shape", kind % 2 == 0 ? Cube() : studio::SphereMesh(1.0F), applied, turned)};
        out.push_back(
            Shape("plain", Cube(), Named("bare", {}, CorvexSG::CoordinateMode::FromWrap), aside));
        studio::StudioScene scene;
        scene.SetShapes(out);
        const studio::Camera camera = scene.FramedBy({});
        const QImage before = Picture(out, camera);
        ASSERT_GT(Different(before, Picture({out[1]}, camera)), 60);
        const Shapes in = Through(out);
        EXPECT_LT(Different(before, Picture(in, camera)), 6);
        EXPECT_EQ(in[0]->Applied().coordinates, CorvexSG::CoordinateMode::FromMesh);
        EXPECT_EQ(in[1]->Applied().coordinates, CorvexSG::CoordinateMode::FromWrap);
        EXPECT_EQ(in[0]->Material().Wrap, CorvexDB::WrapType::Spherical)
            << "tiles that are in the coordinates already";
        EXPECT_THAT(in[0]->Material().Textures.primary, testing::EndsWith(IsObj() ? "bmp" : "png"));
        for (const studio::Vertex& vertex : in[0]->SharedMesh()->vertices) {
            const auto [low, high] = std::minmax(vertex.uv[0], vertex.uv[1]);
            ASSERT_TRUE(!isCropped || (low > -0.001F && high < 1.001F)) << "beside the crop";
        }
    }
    EXPECT_EQ(m_report.Count(studio::Outcome::Dropped), 0U);
    EXPECT_TRUE(std::ranges::none_of(m_report.Rows(), [](const studio::ReportRow& row) {
        return row.property == "Coordinates" || row.material == "shape";
    }));
}

TEST(LossesInReports, ThatAreAlikeAreCounted)
{
    studio::Report report;
    for (int i = 0; i < 10; ++i) {
        const std::string number = std::to_string(i);
        studio::MaterialNotes notes(report, "Oak " + number);
        notes.Mapped("Color");
        notes.Add("Name", studio::Outcome::Approximated, "it is %1 there", "Oak_" + number);
        if (i < 4) {
            notes.Dropped("Bump map", "not there");
        }
    }
    const std::vector<studio::ReportRow> losses = studio::LossesIn(report);
    ASSERT_EQ(losses.size(), 8U);
    EXPECT_EQ(studio::NoteOf(losses[5]), "and 7 more: Name approximated, it is ... there");
    EXPECT_EQ(studio::NoteOf(losses[7]), "Oak 3: Bump map dropped, not there");
}

TEST_P(SceneExport, TellsOfTexturesThatAreMissingAndRefusesWhatHasNoSurface)
{
    CorvexDB::udtMaterial material;
    material.Textures.primary = m_folder.PathOf("gone.png").toStdString();
    material.Textures.bump = m_folder.Write("text.png", "no image").toStdString();
    const Shapes shapes{Shape("shape", Cube(), Named("Bare", material))};
    EXPECT_THAT(studio::TexturesNotFound(shapes), testing::ElementsAre(material.Textures.primary));
    const Shapes in = Through(shapes);
    EXPECT_EQ(in[0]->Material().Textures.primary, material.Textures.primary);
    EXPECT_EQ(std::ranges::count(m_report.Rows(), "Texture file", &studio::ReportRow::property), 2);
    const std::string file = m_folder.PathOf("none").toStdString() + GetParam();
    EXPECT_THROW(studio::ExportScene(file, {Shape("empty", nullptr, {})}, m_report),
                 CorvexMaterial::Error);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_P(SceneExport, IsWrittenWholeOrNotAtAll)
{
    const CorvexTest::SampleFolder pictures;
    const std::string picture = pictures.Save("oak.bmp", Qt::red).toStdString();
    const bool makesPicture = std::string(GetParam()) == ".gltf";
    const auto write = [&](float size, const std::stop_token& stop = {}) {
        CorvexDB::udtMaterial material;
        material.Specular = static_cast<std::int32_t>(size);
        material.Textures.primary = makesPicture ? picture : std::string();
        QMatrix4x4 place;
        place.scale(size);
        studio::ExportScene(m_folder.PathOf("scene").toStdString() + GetParam(),
                            {Shape("shape", Cube(), Named("worn", material), place)}, m_report,
                            stop);
    };
    const auto files = [this] {
        std::map<QString, QByteArray> contents;
        for (const QString& name : QDir(m_folder.Path()).entryList(QDir::Files | QDir::Hidden)) {
            contents[name] = CorvexTest::ContentOf(m_folder.PathOf(name));
        }
        return contents;
    };
    {
        const CorvexTest::FullDisk disk(200);  // has room for the picture
        EXPECT_THROW(write(1.0F), CorvexMaterial::Error);
    }
    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_THROW(write(1.0F, stopped.get_token()), CorvexMaterial::Error);
    EXPECT_TRUE(
        QDir(m_folder.Path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden));
    write(1.0F);
    EXPECT_EQ(QFile::exists(m_folder.PathOf("Textures/oak.png")), makesPicture);
    const auto before = files();
    EXPECT_EQ(before.size(), std::string(GetParam()) == ".glb" ? 1U : 2U);
    // None of its files fits, or only the first.
    for (const rlim_t room : {rlim_t{0}, IsObj() ? rlim_t{300} : rlim_t{1300}}) {
        const CorvexTest::FullDisk disk(room);
        EXPECT_THROW(write(2.0F), CorvexMaterial::Error);
        EXPECT_EQ(files(), before);
    }
    write(2.0F);
    EXPECT_NE(files(), before);
}

INSTANTIATE_TEST_SUITE_P(Formats, SceneExport, testing::Values(".glb", ".gltf", ".obj"),
                         [](const auto& row) { return std::string(row.param + 1); });

}  // namespace
