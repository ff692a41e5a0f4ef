#include "DocumentFile.h"
#include "LibraryFile.h"
#include "MaterialDocument.h"
#include "ModelImport.h"
#include "PluginFolder.h"
#include "QtRegularFile.h"
#include "SampleFolder.h"
#include "Testing.h"
#include "TextureFile.h"

#include <sys/stat.h>

namespace {

using namespace std::chrono_literals;

struct Reader {
    const char* name;
    void (*read)(const QString& path);
};

[[noreturn]] void Refuse(const QString& text)
{
    throw std::runtime_error(text.toStdString());
}

const std::array kReaders{
    Reader{"a.cvm",
           [](const QString& path) {
               static_cast<void>(
                   studio::LibraryFile::Open(path.toStdString(), studio::LibraryKind::Materials));
           }},
    Reader{"a.json",
           [](const QString& path) {
               std::vector<std::string> problems;
               static_cast<void>(studio::ReadMaterialDocument(path.toStdString(), problems));
           }},
    Reader{
        "a.mtl",
        [](const QString& path) { static_cast<void>(studio::ReadDocument(path.toStdString())); }},
    Reader{"a.png",
           [](const QString& path) {
               const auto error = studio::ReadTextureFile(path.toStdString(), {64, 1 << 20}).error;
               Refuse(path + QString::fromStdString(error));
           }},
    Reader{"a.bmp",
           [](const QString& path) { static_cast<void>(CorvexMaterial::ReadPicture(path)); }},
    Reader{"a.obj",
           [](const QString& path) {
               Refuse(studio::ImportModelNow(path, {QStringLiteral(STUDIO_PROGRAM), 30s}).message);
           }},
    Reader{"a.so",
           [](const QString& path) {
               Refuse(studio::PluginFolder({QFileInfo(path).path()}).Messages().join(u' '));
           }},
};

class EveryReader : public testing::TestWithParam<Reader> {};

// To open the one is to wait for its other end, to read the next has no end.
TEST_P(EveryReader, RefusesPipesDevicesAndFilesWithoutMeasure)
{
    const CorvexTest::SampleFolder folder;
    const QString pipe = folder.Write("pipe/target", {});
    ASSERT_TRUE(QFile::remove(pipe) && ::mkfifo(QFile::encodeName(pipe).constData(), 0600) == 0);
    const QString vast = folder.Write("vast/target", {});
    ASSERT_TRUE(QFile::resize(vast, qint64{1} << 40));
    for (const auto& [target, cause] : {std::pair<QString, const char*>{pipe, "it is a pipe"},
                                        {"/dev/zero", "it is a device"},
                                        {vast, "it is larger than"}}) {
        const QString path = folder.PathOf(GetParam().name);
        ASSERT_TRUE(QFile::link(target, path));
        try {
            GetParam().read(path);
            FAIL() << cause;
        } catch (const std::exception& error) {
            EXPECT_THAT(error.what(), testing::HasSubstr(GetParam().name));
            EXPECT_THAT(error.what(), testing::HasSubstr(cause));
        }
        ASSERT_TRUE(QFile::remove(path));
    }
}

INSTANTIATE_TEST_SUITE_P(Files, EveryReader, testing::ValuesIn(kReaders), [](const auto& row) {
    return QString(row.param.name).mid(2).toStdString();
});

}  // namespace
