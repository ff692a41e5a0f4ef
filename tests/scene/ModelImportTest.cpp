#include "Interchange.h"
#include "ModelShapes.h"
#include "SampleFolder.h"

#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;
using CorvexTest::SampleFolder;
using studio::ImportedModel;
using studio::ImportFailure;
using studio::ImportModelNow;
using studio::ImportOutcome;
using studio::ImportProgram;

QString Data(const QString& name)
{
    return QStringLiteral(SCENE_TEST_DATA "/") + name;
}

QString Losses(const ImportedModel& model)
{
    QString text;
    for (const std::string& note : studio::NotesOf(model.report, 1)) {
        text += QString::fromStdString(note) + '\n';
    }
    return text;
}

ImportProgram Importer()
{
    return {QStringLiteral(IMPORTING_PROCESS), 30s};
}

ImportedModel Imported(const QString& file, const ImportProgram& importer = Importer())
{
    const ImportOutcome outcome = ImportModelNow(file, importer);
    if (!outcome.model) {
        throw std::runtime_error(outcome.message.toStdString());
    }
    return *outcome.model;
}

TEST(ModelImport, EveryFormatArrivesWithItsShapesInPlace)
{
    struct Row {
        const char* file;
        std::size_t shapes;
        std::size_t triangles;
        QVector3D low;
        QVector3D high;
    };
    for (const Row& row : {Row{"box.obj", 2, 12, {-1, -1, -1}, {1, 1, 1}},
                           Row{"tetra.ply", 1, 4, {0, 0, 0}, {1, 1, 1}},
                           Row{"tetra.stl", 1, 4, {0, 0, 0}, {1, 1, 1}},
                           Row{"leaf.gltf", 1, 1, {10, 5, 0}, {12, 8, 0}},
                           Row{"frames.x", 2, 2, {0, 0, 0}, {5, 1, 0}}}) {
        SCOPED_TRACE(row.file);
        studio::StudioScene scene;
        scene.SetShapes(studio::ShapesOf(Imported(Data(row.file))));
        EXPECT_EQ(scene.All().size(), row.shapes);
        std::size_t triangles = 0;
        for (const auto& shape : scene.All()) {
            triangles += shape->SharedMesh()->indices.size() / 3;
            EXPECT_FALSE(shape->Name().empty());
        }
        EXPECT_EQ(triangles, row.triangles);
        EXPECT_LT((scene.Extent().minimum - row.low).length(), 1e-4F);
        EXPECT_LT((scene.Extent().maximum - row.high).length(), 1e-4F);
    }
}

TEST(ModelImport, NormalsThatAreMissingAreThoseOfTheFaces)
{
    const SampleFolder folder;
    QByteArray text = CorvexTest::ContentOf(Data("tetra.stl"));
    text.replace("facet normal 0 0 -1", "facet normal 0 0 0");
    const auto tetra = Imported(folder.Write("null.stl", text)).meshes.front().mesh;
    for (std::size_t i = 0; i < 3; ++i) {  // the face whose normal was taken away
        EXPECT_EQ(tetra->vertices[tetra->indices[i]].normal, (std::array{0.0F, 0.0F, -1.0F}));
    }
    const QString edge =
        folder.Write("edge.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 2\n");
    for (const auto& vertex : Imported(edge).meshes.front().mesh->vertices) {
        EXPECT_GT(std::max(vertex.normal[1], vertex.normal[2]), 0.99F) << "the edge stays sharp";
    }
}

TEST(ModelImport, KeepsTheLookOfTheMaterials)
{
    const auto box = studio::ShapesOf(Imported(Data("box.obj")));
    const auto& copper = box[0]->Material();
    EXPECT_EQ(copper.Color, CorvexMaterial::MakeColour({204, 102, 51}));
    EXPECT_EQ(copper.Specular, 50);
    // 0.1 of the 0.8 that the surface has at most.
    EXPECT_EQ(copper.Emissive, 13);
    EXPECT_EQ(copper.Transparency, 0);
    EXPECT_EQ(box[0]->Applied().coordinates, CorvexSG::CoordinateMode::FromMesh);
    EXPECT_EQ(box[1]->Material().Transparency, 75);

    const auto leaf = studio::ShapesOf(Imported(Data("leaf.gltf")));
    const auto& leafage = leaf[0]->Material();
    // 0.216 of linear light is displayed as 128 of 255.
    EXPECT_EQ(leafage.Color, CorvexMaterial::MakeColour({128, 0, 255}));
    EXPECT_TRUE(leafage.DoubleSided);
    EXPECT_EQ(leafage.AlphaTest, 6);
    EXPECT_EQ(leafage.AlphaTestReference, 102);
    EXPECT_EQ(leafage.Specular, 75);
    // It has no texture coordinates of its own.
    EXPECT_EQ(leaf[0]->Applied().coordinates, CorvexSG::CoordinateMode::FromWrap);
}

TEST(ModelImport, ColoursOfVerticesBecomeTheColourOfTheSurface)
{
    struct Row {
        const char* last;  ///< the colour of the last of three vertices
        CorvexMaterial::ColourBytes colour;
        bool remarks;
    };
    const SampleFolder folder;
    for (const auto& [last, colour, remarks] :
         {Row{"200 100 0", {200, 100, 0}, false}, Row{"50 100 255", {150, 100, 85}, true}}) {
        const QString file = folder.Write(
            "scan.ply", QByteArray("ply\nformat ascii 1.0\nelement vertex 3\nproperty float x\n"
                                   "property float y\nproperty float z\nproperty uchar red\n"
                                   "property uchar green\nproperty uchar blue\nelement face 1\n"
                                   "property list uchar int vertex_indices\nend_header\n"
                                   "0 0 0 200 100 0\n1 0 0 200 100 0\n0 1 0 ") +
                            last + "\n3 0 1 2\n");
        const ImportedModel model = Imported(file);
        EXPECT_EQ(studio::ShapesOf(model)[0]->Material().Color, CorvexMaterial::MakeColour(colour));
        EXPECT_EQ(Losses(model).contains("on average"), remarks);
    }
}

TEST(ModelImport, TexturesAreFoundBesideTheModelAndMissingOnesKeepTheirPath)
{
    const SampleFolder folder;
    const QString picture = folder.Write("bark.png", "a picture");
    folder.Write("tree.mtl", "newmtl a\nmap_Kd C:\\old\\bark.png\nmap_d bark.png\n"
                             "newmtl b\nKs 1 1 1\nNs 50\nmap_Kd away/gone.png\nmap_d holes.png\n"
                             "map_Ks C:\\old\\shine.png\nmap_Bump relief.png\n");
    const QString model = folder.Write("tree.obj", "mtllib tree.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"
                                                   "usemtl a\nf 1 2 3\nusemtl b\nf 3 2 1\n");
    const auto shapes = studio::ShapesOf(Imported(model));
    ASSERT_EQ(shapes.size(), 2U);
    EXPECT_EQ(shapes[0]->Material().Textures.primary, picture.toStdString());
    const std::string here = QFileInfo(model).path().toStdString();
    const CorvexDB::TextureFiles& missing = shapes[1]->Material().Textures;
    EXPECT_EQ(missing.primary, here + "/away/gone.png");
    EXPECT_EQ(missing.alpha, here + "/holes.png");
    EXPECT_EQ(missing.bump, here + "/relief.png");
    EXPECT_EQ(missing.specular, here + "/shine.png");
    EXPECT_EQ(shapes[0]->Material().Textures.alpha, "") << "the picture's own";
}

TEST(ModelImport, PicturesInsideAModelAreTakenOutAndMissedWithoutHarm)
{
    const SampleFolder folder;
    const auto leafWith = [](const QByteArray& picture) {
        return CorvexTest::ContentOf(Data("leaf.gltf"))
            .replace("leafage", "leaf/age")
            .replace("\"baseColorFactor\"",
                     "\"baseColorTexture\":{\"index\":0},\"baseColorFactor\"")
            .replace("\"accessors\"",
                     "\"textures\":[{\"source\":0}],\"images\":[{\"uri\":\"data:image/png;base64," +
                         picture.toBase64() + "\"}],\"accessors\"");
    };
    const QByteArray dot = CorvexTest::ContentOf(folder.Save("dot.png", Qt::red, {1, 1}));
    const QString red = folder.Write("red leaf.gltf", leafWith(dot));
    const QString damaged = folder.Write("damaged.gltf", leafWith("no picture"));
    const QString data = folder.PathOf("data");
    ImportProgram importer = Importer();
    struct Row {
        QString file;
        QString pictureFolder;
        QString picture;
    };
    for (const auto& [file, pictureFolder, picture] :
         {Row{red, data, data + "/Textures/leaf_age.png"},
          Row{red, data, data + "/Textures/leaf_age.png"}, Row{damaged, data, {}},
          Row{red, "/proc", {}}}) {
        importer.pictureFolder = pictureFolder.toStdString();
        const ImportedModel model = Imported(file, importer);
        EXPECT_EQ(Losses(model).contains("baseColorTexture"), picture.isEmpty());
        EXPECT_EQ(studio::ShapesOf(model)[0]->Material().Textures.primary, picture.toStdString());
        EXPECT_EQ(QImage(picture).pixelColor(0, 0).isValid(), !picture.isEmpty());
    }
}

TEST(ModelImport, BadFilesBecomeMessagesThatNameThem)
{
    const SampleFolder folder;
    const QByteArray head = "xof 0303txt 0032\n";
    for (const auto& [name, bytes] : std::map<const char*, QByteArray>{
             {"empty.obj", ""},
             {"notes.txt", "just some words"},
             {"points.obj", "v 0 0 0\nv 1 1 1\nv 2 2 2\n"},
             {"cut.gltf", "{\"asset\":{\"version\":\"2.0\"},\"meshes\":[{\"primit"},
             {"noise.ply", "ply\nformat binary_little_endian 1.0\nelement vertex 4000000000\n"
                           "property float x\nend_header\n\x01\x02"},
             {"longname.x", head + "Frame " + QByteArray(200000, 'n') + " { Mesh m { 0;; } }"},
             {"many.x", head + "Mesh m { 4294967295; 0;0;0;, }"},
         }) {
        const QString path = folder.Write(name, bytes);
        const ImportOutcome outcome = ImportModelNow(path, Importer());
        EXPECT_FALSE(outcome.model) << name;
        EXPECT_NE(outcome.failure, ImportFailure::None) << name;
        EXPECT_NE(outcome.failure, ImportFailure::TimedOut) << name;
        EXPECT_TRUE(outcome.message.contains(path)) << outcome.message.toStdString();
        EXPECT_LT(outcome.message.size(), 800) << name;
    }
    EXPECT_EQ(ImportModelNow(Data("damaged.x"), Importer()).failure, ImportFailure::Crashed);
    EXPECT_EQ(ImportModelNow("/no/such.obj", Importer()).failure, ImportFailure::NotFound);
    EXPECT_TRUE(ImportModelNow(QDir::tempPath(), Importer()).message.contains("it is a folder"));
}

TEST(ModelImport, FilesThatAModelNamesAreReadOnlyIfTheyAreFiles)
{
    const SampleFolder folder;
    ASSERT_EQ(::mkfifo(QFile::encodeName(folder.PathOf("pipe.mtl")).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link("/dev/zero", folder.PathOf("zero.mtl")));
    for (const char* cause : {"pipe.mtl: mtllib dropped, not read: it is a pipe",
                              "zero.mtl: mtllib dropped, not read: it is a device"}) {
        const QString model =
            folder.Write("tree.obj", QByteArray("mtllib ") + QByteArray(cause, 8) +
                                         "\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
        const QString losses = Losses(Imported(model));
        EXPECT_TRUE(losses.contains(cause)) << losses.toStdString();
    }
}

// Vertices of nothing, four thousand million of them.
TEST(ModelImport, TimeIsMeasuredByTheSizeOfTheFile)
{
    const SampleFolder folder;
    const QString file =
        folder.Write("damaged.ply", "ply\nformat ascii 1.0\nelement vertex 4000000000\n"
                                    "element face 1\nproperty list uchar int vertex_indices\n"
                                    "end_header\n0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n");
    const ImportOutcome outcome = ImportModelNow(file, {QStringLiteral(IMPORTING_PROCESS), 300s});
    EXPECT_EQ(outcome.failure, ImportFailure::TimedOut);
    EXPECT_TRUE(outcome.message.contains("after 3 seconds")) << outcome.message.toStdString();
}

TEST(ModelImport, WhateverTheImportingProcessDoesIsSurvived)
{
    const SampleFolder folder;
    for (const auto& [lines, failure] : std::map<const char*, ImportFailure>{
             {"kill -SEGV $$", ImportFailure::Crashed},
             {"exit 1", ImportFailure::Crashed},
             {"exit 0", ImportFailure::Damaged},
             {": > \"$3\"", ImportFailure::Damaged},
             {"head -c 100000 /dev/urandom > \"$3\"", ImportFailure::Damaged},
             {"mkdir \"$3\"", ImportFailure::Damaged},
             {"mkfifo \"$3\"", ImportFailure::Damaged},
             {"exit 21", ImportFailure::OutOfMemory},
             {"head -c 3000000 /dev/zero | tr '\\0' x >&2; exit 20", ImportFailure::Refused},
         }) {
        const ImportOutcome outcome =
            ImportModelNow(Data("box.obj"), {folder.WriteScript("importer", lines), 20s});
        EXPECT_EQ(outcome.failure, failure) << lines;
        EXPECT_FALSE(outcome.model);
        EXPECT_TRUE(outcome.message.contains("box.obj")) << outcome.message.toStdString();
        EXPECT_LT(outcome.message.size(), 800);
    }
    EXPECT_EQ(ImportModelNow(Data("box.obj"), {"/no/such/program", 5s}).failure,
              ImportFailure::NotStarted);
}

TEST(ModelImport, HangingImporterIsStoppedAtTheLimitAndByCancel)
{
    const SampleFolder folder;
    const ImportProgram hanging{folder.WriteScript("importer", "exec sleep 600"), 300ms};
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(ImportModelNow(Data("box.obj"), hanging).failure, ImportFailure::TimedOut);
    EXPECT_LT(clock.elapsed(), 10000);

    studio::ModelImport limited(hanging);
    QSignalSpy ends(&limited, &studio::ModelImport::Finished);
    limited.Start(Data("box.obj"));
    ASSERT_TRUE(ends.wait(10000));
    EXPECT_EQ(ends.takeFirst()[0].value<ImportOutcome>().failure, ImportFailure::TimedOut);

    studio::ModelImport cancelled({hanging.path, 600s});
    QSignalSpy cancellations(&cancelled, &studio::ModelImport::Finished);
    cancelled.Start(Data("box.obj"));
    EXPECT_TRUE(cancelled.Running());
    cancelled.Cancel();
    cancelled.Cancel();
    EXPECT_FALSE(cancelled.Running());
    ASSERT_EQ(cancellations.size(), 1);
    EXPECT_EQ(cancellations[0][0].value<ImportOutcome>().failure, ImportFailure::Cancelled);
}

TEST(ModelImport, StartsTheNextWhileAnAnswerWaitsAndFromItsOwnSignal)
{
    studio::ModelImport import(Importer());
    QSignalSpy ends(&import, &studio::ModelImport::Finished);
    const auto next = [&ends] { return ends.takeFirst()[0].value<ImportOutcome>(); };
    import.Start(QStringLiteral("/no/such.obj"));  // its answer waits in the event loop
    import.Start(Data("box.obj"));
    ASSERT_EQ(ends.size(), 1);
    EXPECT_EQ(next().failure, ImportFailure::Cancelled);
    QObject::connect(
        &import, &studio::ModelImport::Finished, &import, [&] { import.Start("/no/such.obj"); },
        Qt::SingleShotConnection);
    ASSERT_TRUE(ends.wait(30000));
    EXPECT_TRUE(next().model);
    ASSERT_TRUE(ends.wait(30000));
    EXPECT_EQ(next().failure, ImportFailure::NotFound);
    EXPECT_FALSE(import.Running());
}

}  // namespace
