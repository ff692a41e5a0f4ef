#include "SampleMaterials.h"

#include "LibraryReading.h"
#include "MaterialDocument.h"
#include "StoredPath.h"
#include "Testing.h"

namespace {

using LibraryTest::ErrorOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST(MaterialText, BringsEveryAttributeBackThroughTheLibraryAndTheDocument)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    std::mt19937 dice(4);
    std::vector<studio::NamedMaterial> materials{{"default", {}}};
    for (int i = 0; i < 200; ++i) {
        materials.push_back({"m" + std::to_string(i), LibraryTest::AnyMaterial(dice)});
    }
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

struct WrongText {
    const char* json;
    const char* key;  ///< of the one problem
};

class WrongValues : public testing::TestWithParam<WrongText> {};

TEST_P(WrongValues, KeepTheirDefaultAndAreNamed)
{
    const std::string json = std::string(R"({"specular":7,)") + GetParam().json + '}';
    const auto reading = studio::MaterialOfJson(json, "/");
    ASSERT_THAT(reading.problems, SizeIs(1)) << json;
    EXPECT_THAT(reading.problems[0], HasSubstr(GetParam().key));
    CorvexDB::udtMaterial expected = reading.material;
    expected.PluginParameters.clear();
    CorvexDB::udtMaterial untouched;
    untouched.Specular = 7;
    EXPECT_TRUE(expected == untouched) << json;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, WrongValues,
    testing::Values(WrongText{R"("colour":"red")", "colour"}, WrongText{R"("wrap":3)", "wrap"},
                    WrongText{R"("ambient":1.5)", "ambient"},
                    WrongText{R"("emissive":1e300)", "emissive"},
                    WrongText{R"("alphaTest":-1)", "alphaTest"},
                    WrongText{R"("doubleSided":1)", "doubleSided"},
                    WrongText{R"("tilesPerUnit":1e39)", "tilesPerUnit"},
                    WrongText{R"("placement":[1])", "placement"},
                    WrongText{R"("placement":{"scaleU":null})", "scaleU"},
                    WrongText{R"("textures":{"bump":5})", "bump"},
                    WrongText{R"("pluginParameters":["x"])", "pluginParameters"},
                    WrongText{R"("pluginParameters":[0,0,0,0,0,0,0,0,0,0,0])", "pluginParameters"},
                    WrongText{R"("customFields":[true])", "customFields"}));

TEST(MaterialText, AmountsBeyondTheirRangeBecomeTheNearestInsideAndAreNamed)
{
    const auto reading = studio::MaterialOfJson(
        R"({"raytrace":{"reflection":10.5,"roughness":-1,"patternColours":[{"red":-3}]}})", "/");
    EXPECT_EQ(reading.material.RayTrace.Reflection, 10.0F);
    EXPECT_EQ(reading.material.RayTrace.Roughness, 0.0F);
    EXPECT_EQ(reading.material.RayTrace.ColorPatternColor[0].red, 0.0F);
    EXPECT_THAT(reading.problems,
                testing::ElementsAre(HasSubstr("10 is taken"), HasSubstr("\"roughness\""),
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

struct PathRow {
    const char* file;
    const char* stored;
};

TEST(StoredPaths, AreRelativeInsideTheLibraryFolderAndBesideIt)
{
    for (const auto& [file, stored] :
         {PathRow{"/a/lib/oak.png", "./oak.png"},
          PathRow{"/a/lib/Textures/oak.png", "./Textures/oak.png"},
          PathRow{"/a/tex/../tex/oak.png", "../tex/oak.png"}, PathRow{"/b/oak.png", "/b/oak.png"},
          PathRow{"bare.png", "bare.png"}, PathRow{"sub/bare.png", "sub/bare.png"},
          PathRow{"", ""}}) {
        EXPECT_EQ(studio::StoredPath(file, "/a/lib"), stored);
    }
    EXPECT_EQ(studio::StoredPath("/b/oak.png", "/a"), "/b/oak.png") << "they share the root only";
    EXPECT_EQ(studio::PathOfStored("../tex/oak.png", "/moved/lib"), "/moved/tex/oak.png");
    EXPECT_EQ(studio::PathOfStored("bare.png", "/moved/lib"), "bare.png");
}

}  // namespace
