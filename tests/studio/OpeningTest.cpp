#include "DocumentFile.h"
#include "LibraryFile.h"
#include "MaterialDocument.h"
#include "ModelImport.h"
#include "PluginFolder.h"
#include "QtRegularFile.h"
#include "SampleFolder.h"
#include "TextureFile.h"

#include <sys/stat.h>

namespace {

using studio::LibraryFile;
using studio::LibraryKind;

/// Ends in an error that tells why.
using Reader = std::function<void(const std::string& path)>;

const std::map<std::string, Reader> kReaders{
    {"a.cvm", [](auto& path) { std::ignore = LibraryFile::Open(path, LibraryKind::Materials); }},
    {"a.json",
     [](auto& path) {
         std::vector<std::string> problems;
         std::ignore = studio::ReadMaterialDocument(path, problems);
     }},
    {"a.mtl", [](auto& path) { std::ignore = studio::ReadDocument(path); }},
    {"a.png",
     [](auto& path) {
         throw std::runtime_error(path + studio::ReadTextureFile(path, {64, 1 << 20}).error);
     }},
    {"a.bmp", [](auto& path) { std::ignore = CorvexMaterial::ReadPicture(path.c_str()); }},
    {"a.obj",
     [](auto& path) {
         const auto outcome =
             studio::ImportModelNow(path.c_str(), {STUDIO_PROGRAM, std::chrono::seconds(30)});
         throw std::runtime_error(outcome.message.toStdString());
     }},
    {"a.so",
     [](auto& path) {
         const studio::PluginFolder plugins({QFileInfo(path.c_str()).path()});
         throw std::runtime_error(plugins.Messages().join(u' ').toStdString());
     }},
};

// To open the one is to wait for its other end, to read the next has no end.
TEST(EveryReader, RefusesPipesDevicesAndFilesWithoutMeasure)
{
    const CorvexTest::SampleFolder folder;
    const QString pipe = folder.PathOf("pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString vast = folder.Write("vast", {});
    ASSERT_TRUE(QFile::resize(vast, qint64{1} << 40));
    for (const auto& reader : kReaders) {
        const QString path = folder.PathOf(QString::fromStdString("files/" + reader.first));
        for (const auto& [target, cause] : {std::pair<QString, const char*>{pipe, "it is a pipe"},
                                            {"/dev/zero", "it is a device"},
                                            {vast, "it is larger than"}}) {
            QDir().mkpath(folder.PathOf("files"));
            ASSERT_TRUE(QFile::link(target, path));
            EXPECT_THAT([&] { reader.second(path.toStdString()); },
                        testing::ThrowsMessage<std::exception>(testing::AllOf(
                            testing::HasSubstr(reader.first), testing::HasSubstr(cause))));
            ASSERT_TRUE(QFile::remove(path));
        }
    }
}

}  // namespace
