#include "FakeMaterialPlugin.h"

#include "CheckedPlugin.h"
#include "PluginFolder.h"
#include "SampleFolder.h"
#include <CorvexMaterial/Status.h>

namespace studio {
namespace {

using CorvexPlugin::Parameter;
using CorvexPlugin::ParameterKind;
using testing::HasSubstr;

TEST(PluginFolder, RefusesForeignAndFaultyFilesByName)
{
    const CorvexTest::SampleFolder folder;
    for (const char* name : {"ThrowsAtStart.so", "WrongVersion.so"}) {
        ASSERT_TRUE(QFile::copy(QStringLiteral(FAULTY_PLUGINS "/") + name, folder.PathOf(name)));
    }
    folder.Write("text.so", "no library at all");
    QFile whole(SHIPPED_PLUGINS "/brick.so");
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    folder.Write("cut.so", whole.read(whole.size() / 2));
    ASSERT_TRUE(whole.copy(folder.PathOf("good.so")));

    const PluginFolder plugins({folder.Path(), "/no/such/folder", SHIPPED_PLUGINS});
    const QString messages = plugins.Messages().join('\n');
    for (const char* refused : {"ThrowsAtStart.so", "WrongVersion.so", "text.so", "cut.so"}) {
        EXPECT_TRUE(messages.contains(refused)) << refused;
    }
    EXPECT_EQ(messages.count("no licence"), 1);
    EXPECT_THAT(messages.toStdString(), HasSubstr("version 999"));
    EXPECT_TRUE(messages.contains("brick.so")) << "the second one of a name is left out";
    EXPECT_THAT(plugins.Names(),
                testing::ElementsAre("Brick", "Woven Cloth", "Marble", "Studs", "Wood"));
}

TEST(PluginFolder, RecordsFollowTheNamesAfterAPlaceholder)
{
    PluginFolder plugins({SHIPPED_PLUGINS});
    const auto records = plugins.Records();
    ASSERT_EQ(records.size(), plugins.Names().size() + 1);
    EXPECT_EQ(records[0].plugin, nullptr);
    for (std::size_t i = 1; i < records.size(); ++i) {
        EXPECT_EQ(records[i].name, plugins.Names()[i - 1]);
        EXPECT_FALSE(records[i].plugin->GetParameters().empty());
    }
}

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(PluginFolder, RefusesBadParametersWithTheirReason)
{
    const std::pair<const char*, void (*)(Parameter&)> rows[] = {
        {"number", [](Parameter& row) { row.minimum = kNaN; }},
        {"number", [](Parameter& row) { row.maximum = kInfinity; }},
        {"number", [](Parameter& row) { row.step = kNaN; }},
        {"minimum above", [](Parameter& row) { row.minimum = 300.0F; }},
        {"default", [](Parameter& row) { row.defaultValue = 300.0F; }},
        {"default", [](Parameter& row) { row.defaultValue = kNaN; }},
        {"no choices", [](Parameter& row) { row.kind = ParameterKind::List; }},
        {"kind", [](Parameter& row) { row.kind = static_cast<ParameterKind>(8); }},
        {"no name", [](Parameter& row) { row.name.clear(); }},
        {"decimals", [](Parameter& row) { row.decimals = 1000; }}};
    for (const auto& [reason, spoil] : rows) {
        FakeMaterialPlugin fake;
        Parameter parameter = FakeMaterialPlugin::Level();
        spoil(parameter);
        fake.parameters = [&] { return std::vector{FakeMaterialPlugin::Level(), parameter}; };
        PluginFolder plugins({});
        plugins.Add(fake, "bad.so");
        EXPECT_TRUE(plugins.Names().empty());
        ASSERT_EQ(plugins.Messages().size(), 1);
        EXPECT_THAT(plugins.Messages()[0].toStdString(),
                    AllOf(HasSubstr("bad.so"), HasSubstr("parameter 2"), HasSubstr(reason)));
    }
}

TEST(CheckedPlugin, RefusesTooManyParametersAndThrownDescriptions)
{
    PluginFolder plugins({});
    FakeMaterialPlugin many;
    many.parameters = [] { return std::vector(100'000, FakeMaterialPlugin::Level()); };
    plugins.Add(many, "many.so");
    FakeMaterialPlugin nameless;
    nameless.name = [] { return std::string(); };
    plugins.Add(nameless, "nameless.so");
    FakeMaterialPlugin throwing;
    throwing.parameters = []() -> std::vector<Parameter> { throw 5; };
    plugins.Add(throwing, "throwing.so");
    EXPECT_TRUE(plugins.Names().empty());
    const QString messages = plugins.Messages().join('\n');
    for (const char* part : {"many.so", "100000", "nameless.so", "throwing.so"}) {
        EXPECT_TRUE(messages.contains(part)) << part;
    }
}

TEST(CheckedPlugin, GivesTheCodeNothingButValuesInItsRanges)
{
    FakeMaterialPlugin fake;
    Parameter choice = FakeMaterialPlugin::Level();
    choice.kind = ParameterKind::List;
    choice.choices = {"a", "b"};
    choice.defaultValue = 1.0F;
    Parameter number = FakeMaterialPlugin::Level();
    number.kind = ParameterKind::Number;
    fake.parameters = [=] { return std::vector{FakeMaterialPlugin::Level(), choice, number}; };
    const CheckedPlugin plugin(fake, "fake.so");
    using Values = std::vector<float>;
    EXPECT_EQ(plugin.Fitted({}), (Values{7, 1, 7}));
    EXPECT_EQ(plugin.Fitted({1e9F, 9, -4, 12, 13}), (Values{255, 1, 0}));
    EXPECT_EQ(plugin.Fitted({kNaN, kNaN, kInfinity}), (Values{7, 1, 255}));
    EXPECT_EQ(plugin.Fitted({2.5F, 0.4F, 2.5F}), (Values{2, 0, 2.5F}));
}

TEST(CheckedPlugin, WrongDrawingsBecomeErrorsThatNameTheFile)
{
    FakeMaterialPlugin fake;
    const CheckedPlugin plugin(fake, "fake.so");
    const std::vector<decltype(fake.generate)> faults{
        [](const auto&, CorvexPlugin::Texture&) { throw std::runtime_error("lost"); },
        [](const auto&, CorvexPlugin::Texture&) { throw 5; },
        [](const auto&, CorvexPlugin::Texture&) { throw std::bad_alloc(); },
        [](const auto&, CorvexPlugin::Texture&) {},
        [](const auto&, CorvexPlugin::Texture& texture) { texture.rgba.resize(17); },
        [](const auto& request, CorvexPlugin::Texture& texture) {
            FakeMaterialPlugin::Plain(request, texture);
            texture.height.pop_back();
        }};
    for (const auto& fault : faults) {
        fake.generate = fault;
        try {
            static_cast<void>(plugin.Draw({7}, 8, [] { return false; }));
            ADD_FAILURE() << "nothing was drawn";
        } catch (const CorvexMaterial::Error& error) {
            EXPECT_THAT(error.what(), HasSubstr("fake.so"));
        }
    }
}

TEST(CheckedPlugin, PointsThatAreNoNumbersAreDrawnAsNothing)
{
    FakeMaterialPlugin fake;
    fake.generate = [](const CorvexPlugin::Request& request, CorvexPlugin::Texture& texture) {
        CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture, [](float, float) {
            return CorvexPlugin::Point{{kNaN, kInfinity, -kInfinity}, kNaN, kNaN};
        });
    };
    const CheckedPlugin plugin(fake, "fake.so");
    const PluginTexture texture = plugin.Draw({7}, 3, [] { return false; });
    EXPECT_EQ(texture.color.pixel(2, 2), qRgba(0, 255, 0, 0));
    EXPECT_EQ(texture.bump.pixelColor(2, 2).red(), 0);
}

}  // namespace
}  // namespace studio
