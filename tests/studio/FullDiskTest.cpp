#include "FullDisk.h"
#include "Interchange.h"
#include "LastingPicture.h"
#include "MaterialDocument.h"
#include "PictureFile.h"
#include "PovRayScene.h"
#include "RunProgram.h"
#include "SampleFolder.h"
#include "ShippedLibraries.h"
#include "SimulationPictures.h"
#include "StudioSceneExporter.h"
#include <CorvexMaterial/QtPlatform.h>
#include <CorvexMaterial/Status.h>

#include <QDirIterator>

namespace {

using CorvexTest::FullDisk;
using CorvexTest::SampleFolder;
using testing::AllOf;
using testing::HasSubstr;

std::map<QString, QByteArray> FilesIn(const QString& folder)
{
    std::map<QString, QByteArray> files;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        QFile file(each.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files[file.fileName()] = file.readAll();
    }
    return files;
}

struct WriterRow {
    const char* name;
    /// Writes something else for each version.
    void (*write)(const SampleFolder& folder, int version);
};

QImage PictureOf(int version)
{
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(QColor(version, 0, 0));
    return picture;
}

void Deliver(const SampleFolder& folder, int version)
{
    if (version == 1) {
        folder.Write("shipped/Textures/oak.jpg", "wood");
    }
    const QStringList problems =
        studio::DeliverLibraries(folder.PathOf("shipped"), folder.PathOf(QString::number(version)));
    if (!problems.isEmpty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    problems.join(u' ').toStdString());
    }
}

constexpr WriterRow kWriters[] = {
    {"own materials",
     [](const SampleFolder& folder, int version) {
         studio::WriteMaterialDocument(
             folder.PathOf("a.json").toStdString(),
             std::vector<studio::NamedMaterial>{{std::to_string(version), {}}});
     }},
    {"glTF",
     [](const SampleFolder& folder, int version) {
         studio::Report report;
         studio::ExportMaterials(folder.PathOf("a.gltf").toStdString(),
                                 std::vector<studio::NamedMaterial>{{std::to_string(version), {}}},
                                 report);
     }},
    {"scene",
     [](const SampleFolder& folder, int version) {
         studio::RaytraceScene scene;
         scene.frame.width = 100 * version;
         scene.frame.height = 100;
         const QString file = folder.PathOf("a.pov");
         studio::WriteRaytraceScene(file, scene, {}, studio::ImagesBeside(file));
     }},
    {"rendered picture",
     [](const SampleFolder& folder, int version) {
         studio::SavePicture(PictureOf(version), folder.PathOf("a.png"), {"png"});
     }},
    {"image of a scene",
     [](const SampleFolder& folder, int version) {
         studio::Texture texture;
         texture.image = PictureOf(version);
         static_cast<void>(studio::RaytraceImages(studio::kPovRayImages, {},
                                                  studio::ImagesBeside(folder.PathOf("a.pov")))
                               .ImageOf(texture));
     }},
    {"picture inside a model",
     [](const SampleFolder& folder, int version) {
         static_cast<void>(studio::StorePicture(QByteArray::number(version), "a.png",
                                                folder.Path().toStdString()));
     }},
    {"simulation",
     [](const SampleFolder& folder, int version) {
         const QString made = folder.PathOf(QString::number(version));
         if (version == 1) {
             folder.Write("1", "picture");
             folder.Write("2", "picture");
         }
         static_cast<void>(
             studio::SimulationPictures(folder.PathOf("kept")).Keep(made.toStdString()));
     }},
    {"shipped library", Deliver},
    {"settings",
     [](const SampleFolder& folder, int version) {
         qputenv("XDG_CONFIG_HOME", folder.Path().toLocal8Bit());
         CorvexMaterial::QtPlatform desktop;
         auto& store = desktop.Get().settings;
         store.Write({"Host", "Section", "Key"}, std::to_string(version));
         store.Flush("Host");
     }},
    {"temporary file",
     [](const SampleFolder& folder, int version) {
         CorvexMaterial::QtPlatform desktop;
         desktop.Get().temporaryFiles.Write(folder.PathOf("a.ini").toStdString(),
                                            std::to_string(version));
     }},
};

class FullDiskTest : public testing::TestWithParam<WriterRow> {};

TEST_P(FullDiskTest, IsToldAndLeavesWhatWasThere)
{
    const SampleFolder folder;
    GetParam().write(folder, 1);
    const auto before = FilesIn(folder.Path());
    ASSERT_FALSE(before.empty());
    std::string message;
    {
        const FullDisk disk;
        try {
            GetParam().write(folder, 2);
        } catch (const CorvexMaterial::Error& error) {
            EXPECT_EQ(error.Code(), CorvexMaterial::Status::FileFailed);
            message = error.what();
        }
    }
    EXPECT_THAT(message,
                AllOf(HasSubstr(folder.Path().toStdString()), HasSubstr("File too large")));
    EXPECT_EQ(FilesIn(folder.Path()), before);
}

INSTANTIATE_TEST_SUITE_P(Writers, FullDiskTest, testing::ValuesIn(kWriters), [](const auto& row) {
    std::string name = row.param.name;
    std::erase_if(name, [](char letter) { return !std::isalnum(letter); });
    return name;
});

TEST(FullDiskTest, FailsACommand)
{
    const SampleFolder folder;
    folder.Save("a.png", Qt::red);
    const auto run = [&](const QString& line) {
        return CorvexTest::RunProgram(STUDIO_PROGRAM, line.split(u' '), [&](QProcess& process) {
            process.setWorkingDirectory(folder.Path());
        });
    };
    ASSERT_EQ(run("library add a.cvm --name Oak").exitCode, 0);
    const auto before = FilesIn(folder.Path());
    for (const auto& [line, file] :
         {std::pair("library export a.cvm --out a.json", "a.json"),
          std::pair("library thumbnails a.cvm --out thumbnails", "thumbnails/000000.png"),
          std::pair("render --primitive cube --out a.png", "a.png"),
          std::pair("export a.pov --primitive cube", "a.pov")}) {
        const FullDisk disk;
        const CorvexTest::Outcome outcome = run(line);
        EXPECT_EQ(outcome.exitCode, 1) << line;
        EXPECT_THAT(outcome.errors.toStdString(),
                    AllOf(HasSubstr(file), HasSubstr("File too large")));
        EXPECT_EQ(FilesIn(folder.Path()), before) << line;
    }
}

}  // namespace
