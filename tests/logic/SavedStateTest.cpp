#include "SavedStateFixture.h"

#include <sstream>

namespace CorvexMaterial {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The keys of stores in use, in the order in which each flow touches them, for a plug-in with two
// parameters. What follows a stroke stands whole.

/// After "Material", with the text that an empty store gives.
constexpr auto kLoadedKeysAndDefaults = R"(
PreviewPrimitive=2 Color=16777215 Emissive=20 Specular=0 Transparency=0 Ambient=60
WrapOrientationU=False WrapOrientationV=False DoubleSided=False AlphaTest=0 AlphaTestReference=0
WrapType=0 /TextureOverlayTranslucency=50 TextureFlatWrapType=0 WrapOriginU=0 WrapOriginV=0
WrapScaleU=1 WrapScaleV=1 WrapTilesPerUnit=1 Texture= TextureAlphaChannelUse=0
AlphaIsTransparent=False TextureAlpha= TextureOverlay= TextureBumpmap= TextureSpecularMap=
TextureEnvironmentMap= RayTraceBrilliance=5 RayTraceReflection=0 RayTraceNormalPattern=0
RayTraceNormalSize=5 RayTraceNormalScale=5 RayTraceIridescenceFactor=0
RayTraceIridescenceThickness=5 RayTraceIridescenceTurbulence=5 RayTraceRoughness=5
RayTraceMetallic=0 RaytracePredefinedType=0 RaytracePredefinedMaterial=0 RaytraceColorPattern0Red=1
RaytraceColorPattern0Green=1 RaytraceColorPattern0Blue=1 RaytraceColorPattern1Red=1
RaytraceColorPattern1Green=1 RaytraceColorPattern1Blue=1 RaytraceColorPattern2Red=1
RaytraceColorPattern2Green=1 RaytraceColorPattern2Blue=1 RaytraceColorPattern3Red=1
RaytraceColorPattern3Green=1 RaytraceColorPattern3Blue=1 RaytraceColorPatternFrequencey=0
RaytraceColorPatternTurbulence=0 RaytraceNormalFreqency=0 RaytraceNormalTurbulence=0
/TextureLibrary=Gems.cvt Library=Gems.cvm TextureRotation=0 TextureWidth=0 TextureHeight=0
ProjectionX=0 ProjectionY=0 ProjectionZ=0 ProjectionTurnX=0 ProjectionTurnY=0 ProjectionTurnZ=0
)";

/// After "MaterialUser".
constexpr auto kRememberKeys = R"(
Emissive Specular Transparency Ambient Color WrapType ApplyRelative WrapOrientationU
WrapOrientationV DoubleSided AlphaTest AlphaTestReference /TextureOverlayTranslucency Texture
TextureAlphaChannelUse AlphaIsTransparent TextureAlpha TextureOverlay TextureBumpmap
TextureSpecularMap TextureEnvironmentMap PreviewPrimitive WrapOriginU WrapOriginV WrapScaleU
WrapScaleV TextureFlatWrapType WrapTilesPerUnit /MaterialPlugin /MaterialPluginParameter0
/MaterialPluginParameter1 /MaterialCustomFieldValue0 /MaterialCustomFieldValue1
/MaterialCustomFieldValue2 /MaterialCustomFieldValue3 /MaterialCustomFieldValue4
/MaterialCustomFieldValue5 RayTraceBrilliance RayTraceReflection RayTraceNormalPattern
RayTraceNormalSize RayTraceNormalScale RayTraceIridescenceFactor RayTraceIridescenceThickness
RayTraceIridescenceTurbulence RayTraceRoughness RayTraceMetallic RayTraceType RaytracePredefinedType
RaytracePredefinedMaterial RaytraceColorPattern RaytraceColorPattern0Red RaytraceColorPattern0Green
RaytraceColorPattern0Blue RaytraceColorPattern1Red RaytraceColorPattern1Green
RaytraceColorPattern1Blue RaytraceColorPattern2Red RaytraceColorPattern2Green
RaytraceColorPattern2Blue RaytraceColorPattern3Red RaytraceColorPattern3Green
RaytraceColorPattern3Blue RaytraceColorPatternFrequencey RaytraceColorPatternTurbulence
RaytraceNormalFreqency RaytraceNormalTurbulence TextureRotation TextureWidth TextureHeight
ProjectionX ProjectionY ProjectionZ ProjectionTurnX ProjectionTurnY ProjectionTurnZ
/PluginDefaults/Marble
)";

std::vector<std::string> Words(const std::string& beginning, const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word.starts_with('/') ? word.substr(1) : beginning + word);
    }
    return words;
}

class SavedStateTest : public SavedStateFixture {
protected:
    /// A value of its own for every attribute, none of them the factory's.
    void FillPanel()
    {
        const std::map<AttributeKind, std::string> valueOfKind{
            {AttributeKind::WholeNumber, "-7"},
            {AttributeKind::ListPosition, "1"},
            {AttributeKind::Flag, "True"},
            {AttributeKind::Single, "0.25"},
            {AttributeKind::PackedColour, "4660"}};
        for (const AttributeRow& row : AttributeRows()) {
            const auto value = valueOfKind.find(row.kind);
            panel.texts[row.attribute] = value != valueOfKind.end()
                                             ? value->second
                                             : "Käse \"" + std::string(row.currentKey) + "\"|";
        }
        panel.texts[Attribute::Plugin] = "Marble";
        panel.parameters = {"0.125", "9"};
        panel.customFields = {"a", "", "c|d", "ü", "5", "f"};
    }
};

TEST_F(SavedStateTest, LoadingAnEmptyStoreReadsEveryKeyInOrderAndShowsTheDefaults)
{
    state.Load(panel);
    const std::vector<std::string> expected = Words("Material", kLoadedKeysAndDefaults);
    ASSERT_EQ(panel.shown.size(), expected.size());
    ASSERT_EQ(store.reads.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(store.reads[i] + "=" + panel.shown[i].second, expected[i]);
    }
    EXPECT_THAT(store.writes, IsEmpty());
}

TEST_F(SavedStateTest, RememberWritesEveryUserKeyInOrder)
{
    FillPanel();
    state.Remember(panel);
    EXPECT_EQ(store.writes, Words("MaterialUser", kRememberKeys));
    EXPECT_TRUE(store.isFlushed);
}

TEST_F(SavedStateTest, ResetToUserReadsItsKeysAndTheParametersOfTheStoredPlugin)
{
    store.values = {
        {"MaterialPlugin", "Marble"},
        {"MaterialPluginParameter0", "8"},  // of whatever plug-in the last run ended with
        {"PluginDefaults/Marble", "0.750 x"}};
    state.ResetToUser(panel);
    std::vector<std::string> expected = Words("MaterialUser", kRememberKeys);
    for (const char* stays : {"MaterialUserApplyRelative", "MaterialUserPreviewPrimitive",
                              "MaterialUserRayTraceType", "MaterialUserRaytraceColorPattern",
                              "MaterialPluginParameter0", "MaterialPluginParameter1"}) {
        std::erase(expected, stays);
    }
    EXPECT_THAT(store.reads, ::testing::UnorderedElementsAreArray(expected));
    EXPECT_THAT(panel.parameters, ElementsAre("0.75", "3"));
    EXPECT_EQ(panel.texts[Attribute::TextureAlphaChannelUse], "0");
    EXPECT_EQ(panel.texts[Attribute::RayTraceBrilliance], "5");
}

TEST_F(SavedStateTest, FactoryResetTouchesNeitherTheLibrariesNorTheStore)
{
    FillPanel();
    const std::string library = panel.texts[Attribute::MaterialLibrary];
    state.ResetToFactory(panel);
    EXPECT_EQ(panel.texts[Attribute::MaterialLibrary], library);
    EXPECT_EQ(panel.texts[Attribute::Color], "16777215");
    EXPECT_EQ(panel.texts[Attribute::PreviewPrimitive], "2");
    EXPECT_EQ(panel.texts[Attribute::ApplyRelative], "0");
    EXPECT_EQ(panel.texts[Attribute::Plugin], "");
    EXPECT_THAT(panel.parameters, IsEmpty());
    EXPECT_EQ(panel.customFields, CustomFieldValues{});
    EXPECT_THAT(store.applications, IsEmpty());
}

TEST_F(SavedStateTest, PluginParametersAreRememberedAlone)
{
    FillPanel();
    state.RememberPluginParameters(panel);
    EXPECT_THAT(store.writes, ElementsAre("MaterialPluginParameter0", "MaterialPluginParameter1",
                                          "PluginDefaults/Marble"));
    EXPECT_TRUE(store.isFlushed);
    EXPECT_THAT(state.UserPluginParameters(panel), ElementsAre("0.125", "9"));
    panel.texts[Attribute::Plugin] = "Basalt";
    EXPECT_THAT(state.UserPluginParameters(panel), IsEmpty()) << "another's are none of its own";
}

TEST_F(SavedStateTest, AWriteThatFailsLosesItsOwnKeyAlone)
{
    FillPanel();
    const auto save = {&SavedState::SaveAtTerminate, &SavedState::Remember};
    for (const auto flow : save) {
        store.values.clear();
        store.writes.clear();
        store.isFlushed = false;
        store.failingAccess = store.applications.size() + 3;
        EXPECT_THROW((state.*flow)(panel), Error);
        EXPECT_EQ(store.values.count(store.writes[2]), 0U);
        EXPECT_EQ(store.values.size(), store.writes.size() - 1);
        EXPECT_GT(store.writes.size(), 60U);
        EXPECT_TRUE(store.isFlushed);
    }
}

TEST_F(SavedStateTest, AStoreThatFailsWhileItIsReadLeavesThePanelAsItWas)
{
    store.failingAccess = 57;
    EXPECT_THROW(state.Load(panel), Error);
    EXPECT_THAT(panel.shown, IsEmpty());

    panel.texts[Attribute::Plugin] = "Marble";
    panel.parameters = {"0.25", "4"};
    const auto before = panel.texts;
    store.failingAccess = 57 + 30;
    EXPECT_THROW(state.ResetToUser(panel), Error);
    EXPECT_EQ(panel.texts, before);
    EXPECT_THAT(panel.parameters, ElementsAre("0.25", "4"));
}

TEST_F(SavedStateTest, StoredTextsAreConvertedOrFallBackToTheFactoryValueAlone)
{
    using enum Attribute;
    struct Row {
        Attribute attribute;
        std::vector<std::pair<std::string, std::string>> storedAndShown;
    };
    const Row rows[] = {
        {PreviewPrimitive, {{"7", "7"}}},
        {Ambient, {{"2.5", "2"}, {" +3.5 ", "4"}, {"12,5", "60"}, {"", "60"}, {"3e9", "60"}}},
        {Emissive, {{"nan", "20"}, {"\xFF\xFE", "20"}}},
        {Color, {{"-1", "16777215"}, {"16777216", "0"}, {"red", "16777215"}}},
        {AlphaTest, {{"7", "7"}, {"8", "0"}, {"-1", "0"}, {"7.5", "0"}}},
        {TextureAlphaChannelUse, {{"5", "0"}}},
        {RaytracePredefinedMaterial, {{"30", "30"}, {"-1", "0"}}},
        {DoubleSided, {{"TRUE", "True"}, {"-1", "True"}, {"yes", "False"}, {"1", "True"}}},
        {TilesPerUnit, {{"0.25", "0.25"}, {"1e39", "1"}}},
        {RaytraceColorPattern2Blue, {{"0.500", "0.5"}}},
        {Texture, {{" a,\"b\".png ", " a,\"b\".png "}}}};
    for (const auto& [attribute, texts] : rows) {
        for (const auto& [stored, shown] : texts) {
            store.values = {{std::string(RowOf(attribute).currentKey), stored},
                            {"MaterialLibrary", "Mine.cvm"}};
            state.Load(panel);
            EXPECT_EQ(panel.texts[attribute], shown) << stored;
            EXPECT_EQ(panel.texts[MaterialLibrary], "Mine.cvm") << stored;
        }
    }
}

}  // namespace

}  // namespace CorvexMaterial
