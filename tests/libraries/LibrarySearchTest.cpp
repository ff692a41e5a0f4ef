#include "SampleMaterials.h"

#include "LibraryQuery.h"
#include "TextureText.h"

namespace {

using testing::HasSubstr;

/// One library for all searches.
class Searching : public testing::Test {
protected:
    Searching() : m_library(m_temporary.Open())
    {
        Add("Oak", [](auto& m) { m.Textures.primary = "/home/ann/Oak Bark.PNG"; });
        Add("Gold ring", [](auto& m) {
            m.Color = CorvexMaterial::MakeColour({250, 210, 10});
            m.Specular = 90;
            m.RayTrace.Brilliance = 8.0F;
        });
        Add("Window: blue", [](auto& m) {
            m.Color = CorvexMaterial::MakeColour({0, 0, 250});
            m.Transparency = 75;
            m.DoubleSided = true;
        });
        Add("\xC3\x84hre - 2", [](auto& m) {
            m.Plugin = "Brick";
            m.Textures.bump = "/t/grain.png";
            m.CustomFields[1] = "Acme & Sons";
        });
        Add("Deleted oak", [](auto&) {});
        m_library.Remove(m_library.IdAt(4));
        m_library.Describe(std::vector<studio::DescribedEntry>{
            {m_library.IdAt(0), {"Ann", "CC0", "https://wood.example", {"wood", "Bark"}, {}}},
            {m_library.IdAt(1), {"", "", "", {"metal"}, {"For the Ring"}}},
            {m_library.IdAt(2), {"Ren\xC3\xA9 & Ann", "", "", {"metallic"}, {}}}});
        m_marks = {{m_library.IdAt(1), {true, 5, 2}}, {m_library.IdAt(3), {false, 3, 7}}};
    }

    std::string Found(const std::string& text)
    {
        const auto reading = studio::ReadLibraryQuery(text);
        if (const auto* problem = std::get_if<std::string>(&reading)) {
            return *problem;
        }
        std::string found;
        for (const auto index :
             m_library.Search(std::get<studio::LibraryQuery>(reading), m_marks)) {
            found += std::to_string(index);
        }
        return found;
    }

private:
    void Add(const char* name, const std::function<void(CorvexDB::udtMaterial&)>& change)
    {
        studio::NamedMaterial named{name, {}};
        change(named.material);
        m_library.Add(studio::EntryOfMaterial(named, "/home/ann", {"", "Supplier"}));
    }

    LibraryTest::TemporaryLibrary m_temporary;
    studio::LibraryFile m_library;
    studio::EntryMarks m_marks;
};

struct Search {
    const char* query;
    const char* found;
};

TEST_F(Searching, FindsByNameAndProperty)
{
    for (const auto& [query, found] : {
             Search{"", "0123"},
             Search{"  OAK ", "0"},
             Search{"o", "012"},
             Search{"gold ring", "1"},
             Search{"\"gold  ring\"", ""},
             Search{"\"Window: b\"", "2"},
             Search{"\xC3\xA4HR", "3"},
             Search{"%", ""},
             Search{"-oak", "123"},
             Search{"-", "3"},
             Search{"name:ring", "1"},
             Search{"transparency>30", "2"},
             Search{"translucency>30", "2"},
             Search{"transparency<=0 -oak", "13"},
             Search{"SPECULAR>=90 specular<1e3", "1"},
             Search{"specular!=0", "1"},
             Search{"has:bump", "3"},
             Search{"has:texture", "0"},
             Search{"-has:plugin", "012"},
             Search{"has:field", "3"},
             Search{"has:thumbnail", ""},
             Search{"is:doublesided", "2"},
             Search{"raytrace.brilliance>7.5 raytrace.reflection=0", "1"},
             Search{"tiles-per-unit=1 -is:metallic", "0123"},
             Search{"is:metallic", ""},
             Search{"color~gold", "1"},
             Search{"colour~#0000ff", "2"},
             Search{"color~\"alice blue\" -has:plugin", "0"},
             Search{"color=blue", ""},
             Search{"plugin:bri", "3"},
             Search{"file:\"oak bark\"", "0"},
             Search{"file:ann", ""},
             Search{"field:supplier=\"acme & sons\"", "3"},
             Search{"field:Supplier", "3"},
             Search{"field:2=\"Acme & Sons\"", "3"},
             Search{"field:Supplier=acme", ""},
             Search{"width>0", ""},
             Search{"tag:METAL", "12"},
             Search{"tag=\"metal\"", "1"},
             Search{"-has:tag", "3"},
             Search{"tag:bark tag:wood", "0"},
             Search{"collection:ring", "1"},
             Search{"tag:ring", ""},
             Search{"author:\"ren\xC3\x89 &\"", "2"},
             Search{"author:ann -licence:cc", "2"},
             Search{"source:wood.example license:CC0", "0"},
             Search{"fav:yes", "1"},
             Search{"fav:no transparency=0", "03"},
             Search{"rating>3", "1"},
             Search{"rating=0", "02"},
             Search{"recent:", "31"},
             Search{"recent:yes -fav:yes", "3"},
         }) {
        EXPECT_EQ(Found(query), found) << query;
    }
}

TEST_F(Searching, SaysWhatIsWrongWithAQuery)
{
    for (const auto& [query, problem] : {
             Search{"transparancy>30", "\"transparancy\" cannot be searched for"},
             Search{"transparency>", "needs a number"},
             Search{"transparency>3x", "needs a number"},
             Search{"transparency>nan", "needs a number"},
             Search{"transparency~3", "compared with"},
             Search{"has:", "needs a value, as in has:bump"},
             Search{"has:bumps", "has: knows texture"},
             Search{"has>bump", "like has:bump"},
             Search{"color~mud", "\"mud\" is no colour"},
             Search{"color~#12", "is no colour"},
             Search{"is:nice", "is: knows"},
             Search{"fav:maybe", "fav:yes or fav:no"},
             Search{"tag:", "needs a value"},
             Search{"rating:good", "needs a number"},
             Search{"oak field=x", "like field:Supplier=Acme"},
         }) {
        EXPECT_THAT(Found(query), HasSubstr(problem)) << query;
    }
}

TEST_F(Searching, TakesWhateverIsTyped)
{
    std::mt19937 dice(7);
    const std::string signs = "-:<>=!~\"'%;?ab1 #\\\xC3(";
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto length = dice() % 12; length > 0; --length) {
            text += signs[dice() % signs.size()];
        }
        static_cast<void>(Found(text));
    }
}

// As when the program that wrote the entry is older, or newer, than this one.
TEST(LaterAttributes, AreSearchedByTheirDefaultAndKept)
{
    const LibraryTest::TemporaryLibrary temporary;
    auto library = temporary.Open();
    const auto add = [&library](const char* json) {
        auto entry = LibraryTest::EntryNamed("some");
        entry.json = json;
        library.Add(entry);
    };
    add("{}");
    add(R"({"tilesPerUnit":3,"later":{"x":[2]},"customFields":["a"]})");
    add("{");
    const auto found = [&library](const char* text) {
        return library.Search(std::get<studio::LibraryQuery>(studio::ReadLibraryQuery(text)));
    };
    EXPECT_THAT(found("tilesPerUnit=1"), testing::ElementsAre(0));
    EXPECT_THAT(found("tilesPerUnit>2"), testing::ElementsAre(1));
    library.EditContents([](const std::string& json) {
        return studio::WithMovedFields(json, {1, 0, 2, 3, 4, 5}, {});
    });
    EXPECT_THAT(library.JsonAt(1), HasSubstr(R"("later":{"x":[2]})"));
}

TEST(TextureSearch, FindsByFileAndSize)
{
    const LibraryTest::TemporaryLibrary temporary(studio::LibraryKind::Textures);
    auto library = temporary.Open();
    library.Add(studio::EntryOfTexture("/png/oak.png", "/png", {512, 256}));
    library.Add(studio::EntryOfTexture("/png/pine.tif", "/png", {512, 256}));
    const auto query = studio::ReadLibraryQuery("width>=512 height<512 file:png");
    EXPECT_THAT(library.Search(std::get<studio::LibraryQuery>(query)), testing::ElementsAre(0));
    EXPECT_EQ(library.NameAt(1), "pine");
}

}  // namespace
