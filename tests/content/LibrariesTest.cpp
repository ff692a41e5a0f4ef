#include "DefaultScene.h"
#include "LibraryFile.h"
#include "MaterialText.h"
#include "NamedMaterials.h"
#include "Testing.h"
#include "TextureText.h"
#include <CorvexMaterial/TextureLayers.h>

namespace {

using studio::LibraryFile;
using studio::LibraryKind;

const std::string kFolder = LIBRARY_FOLDER;

bool IsFile(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).isFile();
}

/// Drawn, and of more than one colour: an empty or failed picture would be flat.
bool IsPicture(const std::string& png)
{
    const QImage image =
        QImage::fromData(QByteArray::fromStdString(png)).convertToFormat(QImage::Format_RGB32);
    std::set<QRgb> colours;
    for (int i = 0; i < std::min(image.width(), image.height()); ++i) {
        colours.insert(image.pixel(i, i));
    }
    return colours.size() > 8;
}

}  // namespace

TEST(ShippedLibraries, MaterialsAreWholeAndFindTheirTextures)
{
    auto library = LibraryFile::Open(kFolder + "/Gems.cvm", LibraryKind::Materials);
    ASSERT_GE(library.Count(), 40);
    std::set<std::string> names;
    for (std::int32_t i = 0; i < library.Count(); ++i) {
        const std::string name = library.NameAt(i);
        EXPECT_TRUE(names.insert(name).second) << name << " is there twice";
        EXPECT_THAT(library.JsonAt(i), testing::Not(testing::HasSubstr(kFolder))) << name;
        EXPECT_TRUE(IsPicture(library.ThumbnailAt(i))) << name;
        const auto reading = studio::MaterialOfJson(library.JsonAt(i), kFolder);
        EXPECT_THAT(reading.problems, testing::IsEmpty()) << name;
        for (const auto& layer : CorvexMaterial::kTextureLayers) {
            const std::string& file = reading.material.Textures.*layer.file;
            EXPECT_TRUE(file.empty() || IsFile(file)) << name << ": " << file;
        }
    }
}

TEST(ShippedLibraries, TextureEntriesAreFiles)
{
    auto library = LibraryFile::Open(kFolder + "/Gems.cvt", LibraryKind::Textures);
    ASSERT_GE(library.Count(), 40);
    for (std::int32_t i = 0; i < library.Count(); ++i) {
        const std::string file = studio::TextureOfJson(library.JsonAt(i), kFolder);
        EXPECT_TRUE(IsFile(file)) << file;
        EXPECT_FALSE(library.ThumbnailAt(i).empty()) << file;
    }
}

TEST(ShippedLibraries, DressTheDefaultScene)
{
    const auto gems = studio::NamedMaterialsOf(kFolder + "/Gems.cvm");
    ASSERT_TRUE(gems);
    const auto shapes = studio::DefaultShapes([&](const std::string& name) {
        auto found = gems(name);
        EXPECT_TRUE(found) << name << " is not shipped";
        return found;
    });
    EXPECT_FALSE(shapes.empty());
    EXPECT_FALSE(studio::NamedMaterialsOf(kFolder + "/Missing.cvm"));
}
