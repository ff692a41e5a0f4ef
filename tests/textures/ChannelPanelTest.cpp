#include "ErrorTexts.h"
#include "FileFilter.h"
#include "PanelRig.h"
#include "SampleFolder.h"
#include "TextureMessages.h"
#include <CorvexMaterial/WarningCatalogue.h>

namespace {

using namespace CorvexMaterial;
using namespace CorvexTest;

class Channels : public ::testing::Test {
protected:
    PanelRig rig;
};

TEST_F(Channels, EachTabShowsItsOwnThumbnailAndFields)
{
    auto* surface = new QLabel("surface");
    rig.panel.SetPage(ChannelTab::Surface, surface);
    auto* plugin = new QLabel("plug-in");
    rig.panel.SetPage(ChannelTab::Plugin, plugin);
    for (int tab = 1; tab <= 10; ++tab) {
        rig.Enter(tab);
        for (int image = 0; image < 6; ++image) {
            EXPECT_EQ(rig.Find(QStringLiteral("imgTexture_%1").arg(image)).isVisible(),
                      image == tab - 2)
                << "tab " << tab;
        }
        EXPECT_EQ(rig.Find("txtTexture2Translucency").isVisible(), tab == 3);
        EXPECT_EQ(rig.Find("lblTexture2Translucency").isVisible(), tab == 3);
        EXPECT_EQ(rig.Find("cboTextureAlphaChannelUse").isVisible(), tab == 2);
        EXPECT_EQ(surface->isVisible(), tab == 1);
        EXPECT_EQ(plugin->isVisible(), tab == 10);
    }
    EXPECT_EQ(rig.customFieldsShown, 1);
}

TEST_F(Channels, ATabWithATextureIsMarked)
{
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    const auto picture = [&](int tab) { return tabs.grab(tabs.tabRect(tab - 1)).toImage(); };
    const QImage bump = picture(5);
    const QImage specular = picture(6);
    rig.Page().SetFile(TextureLayer::Bump, "/b.png");
    EXPECT_NE(picture(5), bump);
    EXPECT_EQ(picture(6), specular);
}

TEST_F(Channels, TenTabsFitANarrowDock)
{
    auto& tabs = rig.Find<QTabBar>("tabChannels");
    rig.panel.resize(276, 320);
    QCoreApplication::processEvents();
    ASSERT_EQ(tabs.count(), 10);
    EXPECT_LE(rig.panel.minimumSizeHint().width(), 276);
    for (int i = 0; i < tabs.count(); ++i) {
        EXPECT_TRUE(tabs.rect().contains(tabs.tabRect(i))) << i;
        EXPECT_FALSE(tabs.tabToolTip(i).isEmpty());
    }
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(9).center());
    EXPECT_EQ(rig.panel.CurrentTab(), 10);
}

constexpr const char* kCanBump = "GraphicsCapabilities.CanBumpmap";

TEST_F(Channels, WarningsAreRaisedOnEveryEntry)
{
    using Warnings = std::vector<RaisedWarning>;
    const auto warning = [](WarningId id) {
        return Warnings{{std::string(RowOf(id).text), std::string(RowOf(id).key)}};
    };
    const Warnings simultaneous = warning(WarningId::SpecularEnvironmentMapping);
    Warnings withRaytracer = warning(WarningId::Bumpmapping);
    withRaytracer[0].text = RowOf(WarningId::Bumpmapping).otherText;
    const char* const askForRaytracer = "ApplicationState.RaytracerAvailable";
    struct Row {
        int tab;
        bool capable;
        bool raytracer;
        Warnings warnings;
        Texts asked;
    };
    const Row rows[] = {
        {3, false, true, {}, {}},
        {4, true, true, warning(WarningId::RaytraceTranslucency), {}},
        {5, true, true, {}, {kCanBump}},
        {5, false, true, withRaytracer, {kCanBump, askForRaytracer}},
        {5, false, false, warning(WarningId::Bumpmapping), {kCanBump, askForRaytracer}},
        {6, true, true, {}, {"GraphicsCapabilities.CanSpecularMap"}},
        {6, false, true, simultaneous, {"GraphicsCapabilities.CanSpecularMap"}},
        {7, false, true, simultaneous, {"GraphicsCapabilities.CanEnvironmentMap"}},
        {8, false, true, {}, {}}};
    for (const Row& row : rows) {
        rig.host.graphics.capable = row.capable;
        rig.host.applicationState.raytracerAvailable = row.raytracer;
        for (int entry = 0; entry < 2; ++entry) {
            rig.Enter(2);
            rig.panel.SetCurrentTab(row.tab);
            EXPECT_EQ(rig.warnings, row.warnings) << "tab " << row.tab;
            EXPECT_EQ(rig.log.Order(), row.asked) << "tab " << row.tab;
        }
    }
}

TEST_F(Channels, AFailingCapabilityQueryStillShowsTheTab)
{
    rig.log.FailEach(kCanBump, Fault::StandardException);
    rig.panel.SetCurrentTab(5);
    EXPECT_TRUE(rig.Find("imgTexture_3").isVisible());
    EXPECT_FALSE(rig.Find("imgTexture_0").isVisible());
    EXPECT_EQ(rig.LastMessage().title, kErrorBoxTitle);
}

TEST_F(Channels, SelectedFileGoesToTheLayerOnShow)
{
    rig.Enter(4);
    rig.platform.choosers.files = {"/t/mask.JpG"};
    rig.Press("cmdSelectTexture");
    EXPECT_EQ(rig.Page().File(TextureLayer::Alpha), "/t/mask.JpG");
    EXPECT_EQ(rig.Edits(), 1U);
    rig.platform.choosers.files = {"/t/other.dds"};
    rig.Press("imgTexture_2");
    EXPECT_EQ(rig.Page().Files(), (CorvexDB::TextureFiles{{}, {}, "/t/other.dds", {}, {}, {}}));
    rig.Press("cmdSelectTexture");
    EXPECT_EQ(rig.Page().File(TextureLayer::Alpha), "/t/other.dds") << "cancelled";
    EXPECT_EQ(rig.Edits(), 2U);
}

TEST_F(Channels, AFileOfAnotherTypeIsRefused)
{
    rig.platform.choosers.files = {"/t/stone.jpeg"};
    rig.Press("cmdSelectTexture");
    EXPECT_EQ(rig.LastMessage().text, "File Type not Correct.");
    EXPECT_EQ(rig.LastMessage().title, "Corvex");
    EXPECT_EQ(rig.Page().File(TextureLayer::Primary), "");
    EXPECT_EQ(rig.Edits(), 0U);
}

TEST_F(Channels, TabsWithoutALayerHaveNothingToChooseOrDelete)
{
    rig.Page().SetFile(TextureLayer::Primary, "/t/kept.png");
    for (const int tab : {1, 8, 9, 10}) {
        rig.Enter(tab);
        rig.platform.choosers.files = {"/t/stone.png"};
        for (const char* button : {"cmdSelectTexture", "cmdTexture", "cmdDeleteTexture"}) {
            rig.Find<QPushButton>(button).click();
        }
        EXPECT_TRUE(rig.log.Calls().empty()) << "tab " << tab;
    }
    EXPECT_EQ(rig.Page().Files(), (CorvexDB::TextureFiles{"/t/kept.png", {}, {}, {}, {}, {}}));
}

TEST_F(Channels, TiffWarnsBeforeItsReaderIsLookedFor)
{
    rig.platform.imageFormats.available = false;
    rig.platform.choosers.files = {"/t/a.Tif", "/t/a.Tif"};
    {
        const DialogAnswer answer([&](QDialog& dialog) {
            EXPECT_EQ(rig.log.CountOf("ImageFormats.CanReadTiff"), 0U);
            Click(FindIn<QWidget>(dialog, "chkContinueToReceiveWarning"));
            Click(FindIn<QWidget>(dialog, "cmdOK"));
        });
        rig.Press("cmdSelectTexture");
        EXPECT_TRUE(answer.Given());
    }
    EXPECT_EQ(rig.platform.settings.GetTip("MaterialTIF"), "0");
    EXPECT_TRUE(rig.LastMessage().text.starts_with(
        "Microsoft's GDI+ must be installed in order to use TIF textures."));
    EXPECT_EQ(rig.Edits(), 0U);

    // Silenced, and the reader is there.
    rig.platform.imageFormats.available = true;
    rig.Press("cmdSelectTexture");
    EXPECT_EQ(rig.Page().File(TextureLayer::Primary), "/t/a.Tif");
    EXPECT_EQ(rig.Edits(), 1U);
}

TEST_F(Channels, DroppedFilesAreCheckedLikeChosenOnes)
{
    const SampleFolder folder;
    const QString stone = folder.Write("stone.png", {});
    const QString sky = folder.Write("sky.bmp", {});
    folder.Write("folder.png/inside.png", {});
    QWidget& thumbnail = rig.Find("imgTexture_0");
    EXPECT_TRUE(DropFile(thumbnail, stone, {20, 20}));
    EXPECT_EQ(rig.Page().File(TextureLayer::Primary), stone.toStdString());
    EXPECT_EQ(rig.Edits(), 1U);
    EXPECT_TRUE(DropFile(thumbnail, folder.Write("stone.txt", {}), {20, 20}));
    EXPECT_EQ(rig.LastMessage().text, kWrongFileType);

    auto& tabs = rig.Find<QTabBar>("tabChannels");
    EXPECT_TRUE(DropFile(tabs, sky, tabs.tabRect(6).center()));
    EXPECT_EQ(rig.panel.CurrentTab(), 7);
    EXPECT_EQ(rig.Page().File(TextureLayer::Environment), sky.toStdString());
    EXPECT_EQ(rig.Edits(), 2U);
    EXPECT_FALSE(DropFile(tabs, sky, tabs.tabRect(0).center()));
    EXPECT_FALSE(DropFile(tabs, sky, tabs.tabRect(8).center()));
    for (const char* none : {"folder.png", "gone.png"}) {
        EXPECT_FALSE(DropFile(thumbnail, folder.PathOf(none), {20, 20})) << none;
        EXPECT_FALSE(DropFile(tabs, folder.PathOf(none), tabs.tabRect(6).center())) << none;
    }
    EXPECT_EQ(rig.Page().File(TextureLayer::Primary), stone.toStdString());
    EXPECT_EQ(rig.Edits(), 2U);
}

TEST_F(Channels, DeletingTheOverlayResetsItsTranslucency)
{
    rig.Page().SetFile(TextureLayer::Overlay, "/t/o.png");
    rig.Page().SetFile(TextureLayer::Bump, "/t/b.png");
    rig.Page().SetOverlayTranslucencyText("12");
    rig.Enter(5);
    rig.Press("cmdDeleteTexture");
    EXPECT_EQ(rig.Page().OverlayTranslucencyText(), "12");
    EXPECT_EQ(rig.Page().File(TextureLayer::Bump), "");
    EXPECT_EQ(rig.Page().File(TextureLayer::Overlay), "/t/o.png");
    rig.Enter(3);
    rig.Page().SetAlphaChannelUse(3);  // by program: no edit
    rig.Press("cmdDeleteTexture");
    EXPECT_EQ(rig.Page().OverlayTranslucencyText(), "50");
    EXPECT_EQ(rig.Page().File(TextureLayer::Overlay), "");
    EXPECT_EQ(rig.Edits(), 1U);
}

TEST_F(Channels, AFixedMaterialLocksTheChannelsAndGivesThemBack)
{
    for (const bool enabled : {false, true}) {
        rig.panel.SetChannelsEnabled(enabled);
        for (const char* name :
             {"tabChannels", "imgTexture_0", "cmdSelectTexture", "cmdDeleteTexture"}) {
            EXPECT_EQ(rig.Find(name).isEnabled(), enabled) << name;
        }
        EXPECT_TRUE(rig.Find("chkFlipU").isEnabled());
    }
}

}  // namespace
