#include "SampleFolder.h"
#include "SampleMaterials.h"

#include "LibraryQuery.h"
#include "LibraryReading.h"
#include "MaterialDocument.h"

// Files of the first program that had this format. They stay as they are.

namespace {

using LibraryTest::NamesIn;
using studio::LibraryFile;
using studio::LibraryKind;
using testing::ElementsAre;
using testing::IsEmpty;

class OldLibrary : public testing::TestWithParam<LibraryKind> {
protected:
    OldLibrary() { temporary.SetBytes(bytes); }

    static void ExpectOldEntries(LibraryFile& library, const std::string& folder)
    {
        if (GetParam() == LibraryKind::Textures) {
            EXPECT_EQ(NamesIn(library).front(), "oak");
            EXPECT_EQ(ReadTexture(library, 0), folder + "/Textures/oak.png");
            return;
        }
        const auto first = ReadMaterial(library, 0);
        EXPECT_EQ(NamesIn(library).front(), "M\u00F6rtel \u77F3");
        EXPECT_TRUE(first.material == LibraryTest::WholeMaterial());
        EXPECT_THAT(first.problems, IsEmpty());
        CorvexDB::udtMaterial oak;
        oak.Color = 0x28624F;
        oak.Textures.primary = folder + "/Textures/oak.png";
        EXPECT_TRUE(ReadMaterial(library, 1).material == oak);
    }

    const LibraryTest::TemporaryLibrary temporary{GetParam()};
    const QByteArray bytes =
        CorvexTest::ContentOf(GetParam() == LibraryKind::Materials ? OLD_FILES "/Materials.cvm"
                                                                   : OLD_FILES "/Textures.cvt");
};

TEST_P(OldLibrary, IsReadAndSearchedAndStaysAsItIs)
{
    auto library = temporary.Open();
    ExpectOldEntries(library, temporary.PathOf(""));
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(library.ThumbnailAt(0)), "PNG").width(),
              GetParam() == LibraryKind::Materials ? 128 : 8);
    const char* const queries[] = {
        "m\u00F6rtel color=#604020 ambient=11 emissive=12 specular=13 transparency<0 alphatest=5 "
        "is:doublesided is:raytraced has:texture has:overlay has:alpha has:bump has:specular "
        "has:environment has:thumbnail plugin:marble file:/s.png field:1=one",
        "oak width=8 height=4 file:./textures/ has:thumbnail -has:field"};
    const auto query = studio::ReadLibraryQuery(queries[static_cast<int>(GetParam())]);
    EXPECT_THAT(library.Search(std::get<studio::LibraryQuery>(query)), ElementsAre(0));
    EXPECT_EQ(library.TrashCount(), 1);
    EXPECT_EQ(temporary.Bytes(), bytes);
}

TEST_P(OldLibrary, IsChanged)
{
    auto library = temporary.Open();
    const auto added = library.Add(LibraryTest::EntryNamed("new"));
    library.Remove(added);
    library.Restore(std::vector{library.Trash().back().id, added});
    library.Remove(library.IdAt(library.Count() - 2));
    library.EmptyTrash();
    auto again = temporary.Open();
    ExpectOldEntries(again, temporary.PathOf(""));
    EXPECT_EQ(NamesIn(again).back(), "new");
    EXPECT_THAT(again.StructureProblems(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, OldLibrary,
                         testing::Values(LibraryKind::Materials, LibraryKind::Textures));

TEST(OldDocument, HasEveryValue)
{
    std::vector<std::string> problems;
    const auto materials = studio::ReadMaterialDocument(OLD_FILES "/Materials.json", problems);
    ASSERT_EQ(materials.size(), 2U);
    EXPECT_TRUE(materials[0].material == LibraryTest::WholeMaterial());
    EXPECT_EQ(materials[1].name, "Oak");
    EXPECT_EQ(materials[1].material.Textures.primary, OLD_FILES "/Textures/oak.png");
    EXPECT_THAT(problems, IsEmpty());
}

}  // namespace
