#include "SampleMaterials.h"

#include "LibraryReading.h"
#include "MaterialDocument.h"
#include "StoredPath.h"

namespace {

using LibraryTest::ErrorOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(MaterialText, BringsEveryAttributeBackThroughTheLibraryAndTheDocument)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    std::vector<studio::NamedMaterial> materials{{"default", {}},
                                                 {"whole", LibraryTest::WholeMaterial()}};
    materials[1].material.CustomFields[1] = "two\\\n\"lines\"";
    std::vector<studio::NewEntry> entries;
    for (const auto& named : materials) {
        entries.push_back(studio::EntryOfMaterial(named, temporary.PathOf("")));
    }
    library.Add(entries);
    const std::string document = temporary.PathOf("all.json");
    studio::WriteMaterialDocument(document, materials);
    std::vector<std::string> problems;
    const auto written = studio::ReadMaterialDocument(document, problems);
    ASSERT_EQ(written.size(), materials.size());
    auto again = temporary.Open();
    for (std::size_t i = 0; i < materials.size(); ++i) {
        const auto reading = studio::ReadMaterial(again, static_cast<std::int32_t>(i));
        EXPECT_TRUE(reading.material == materials[i].material) << i;
        EXPECT_THAT(reading.problems, IsEmpty());
        EXPECT_TRUE(written[i].material == materials[i].material) << i;
        EXPECT_EQ(written[i].name, materials[i].name);
    }
    EXPECT_THAT(problems, IsEmpty());
}

struct Row {
    const char* text;
    const char* seen;
};

TEST(MaterialText, WrongValuesKeepTheirDefaultAndAreNamed)
{
    for (const auto& [text, key] :
         {Row{R"("colour":"red")", "colour"}, Row{R"("wrap":3)", "wrap"},
          Row{R"("ambient":1.5)", "ambient"}, Row{R"("emissive":1e300)", "emissive"},
          Row{R"("alphaTest":-1)", "alphaTest"}, Row{R"("doubleSided":1)", "doubleSided"},
          Row{R"("tilesPerUnit":1e39)", "tilesPerUnit"}, Row{R"("placement":[1])", "placement"},
          Row{R"("placement":{"scaleU":null})", "scaleU"}, Row{R"("textures":{"bump":5})", "bump"},
          Row{R"("pluginParameters":["x"])", "pluginParameters"},
          Row{R"("pluginParameters":[0,0,0,0,0,0,0,0,0,0,0])", "pluginParameters"},
          Row{R"("customFields":[true])", "customFields"}}) {
        auto reading = studio::MaterialOfJson(std::string(R"({"specular":7,)") + text + '}', "/");
        EXPECT_THAT(reading.problems, ElementsAre(HasSubstr(key)));
        reading.material.PluginParameters.clear();
        CorvexDB::udtMaterial untouched;
        untouched.Specular = 7;
        EXPECT_TRUE(reading.material == untouched) << text;
    }
}

TEST(MaterialText, AmountsBeyondTheirRangeBecomeTheNearestInsideAndAreNamed)
{
    const auto reading = studio::MaterialOfJson(
        R"({"raytrace":{"reflection":10.5,"roughness":-1,"patternColours":[{"red":-3}]}})", "/");
    EXPECT_EQ(reading.material.RayTrace.Reflection, 10.0F);
    EXPECT_EQ(reading.material.RayTrace.Roughness, 0.0F);
    EXPECT_EQ(reading.material.RayTrace.ColorPatternColor[0].red, 0.0F);
    EXPECT_THAT(reading.problems, ElementsAre(HasSubstr("10 is taken"), HasSubstr("\"roughness\""),
                                              HasSubstr("\"red\"")));
}

TEST(MaterialText, ThatIsNoObjectIsRefusedWithTheCause)
{
    for (const char* text : {"", "[]", "{\"colour\":", "{\"a\":1}garbage", "\xFF\xFE"}) {
        EXPECT_NE(ErrorOf([&] { static_cast<void>(studio::MaterialOfJson(text, "/")); }), "");
    }
    const std::string deep(100000, '[');
    EXPECT_NE(ErrorOf([&] { static_cast<void>(studio::MaterialOfJson(deep, "/")); }), "");
}

TEST(StoredPaths, AreRelativeInsideTheLibraryFolderAndBesideIt)
{
    for (const auto& [file, stored] :
         {Row{"/a/lib/oak.png", "./oak.png"}, Row{"/a/lib/Textures/oak.png", "./Textures/oak.png"},
          Row{"/a/tex/../tex/oak.png", "../tex/oak.png"}, Row{"/b/oak.png", "/b/oak.png"},
          Row{"bare.png", "bare.png"}, Row{"sub/bare.png", "sub/bare.png"}, Row{"", ""}}) {
        EXPECT_EQ(studio::StoredPath(file, "/a/lib"), stored);
    }
    EXPECT_EQ(studio::StoredPath("/b/oak.png", "/a"), "/b/oak.png") << "they share the root only";
    EXPECT_EQ(studio::PathOfStored("../tex/oak.png", "/moved/lib"), "/moved/tex/oak.png");
    EXPECT_EQ(studio::PathOfStored("bare.png", "/moved/lib"), "bare.png");
}

}  // namespace
