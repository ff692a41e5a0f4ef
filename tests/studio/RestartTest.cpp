#include "tests/studio/StudioRig.h"

#include <QCheckBox>
#include <QDockWidget>
#include <QFile>
#include <QLocale>
#include <QToolButton>

#include <gtest/gtest.h>

#include <clocale>

namespace {

using CorvexMaterial::Status;
using StudioTest::StudioRig;

/// Numbers with a comma, in Qt and, where the system has such a locale, in the C library.
class CommaLocale {
public:
    CommaLocale() : m_own(QLocale())
    {
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    }
    ~CommaLocale()
    {
        QLocale::setDefault(m_own);
        std::setlocale(LC_NUMERIC, "C");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

private:
    QLocale m_own;
};

TEST(Restart, BringsMaterialPreviewAndWindowBackUnderACommaLocale)
{
    const CommaLocale comma;
    StudioRig rig;
    rig.Start();
    rig.Choose("cboColor", "Bronze");
    rig.Type("txtAmbient", "85");
    rig.Choose("cboAlphaTest", "Greater/Eq.");
    rig.Press("chkDoubleSided");
    ASSERT_EQ(rig.Window().Panel().put_TextureTilesPerUnit(0.25F), Status::Success);
    ASSERT_EQ(rig.Window().Panel().put_lPreviewPrimitive(3), Status::Success);
    ASSERT_EQ(rig.Window().Panel().put_bMaterialLibraryPanel(true), Status::Success);
    rig.Window().Dock().hide();
    rig.Window().resize(1010, 707);
    rig.Stop();
    rig.Start();

    EXPECT_EQ(rig.Find<QComboBox>("cboColor").currentText(), "Bronze");
    EXPECT_EQ(rig.TextOf("txtAmbient"), "85");
    EXPECT_EQ(rig.Find<QComboBox>("cboAlphaTest").currentText(), "Greater/Eq.");
    EXPECT_TRUE(rig.Find<QCheckBox>("chkDoubleSided").isChecked());
    float tiles = 0.0F;
    std::int32_t primitive = 0;
    bool libraryPanel = false;
    EXPECT_EQ(rig.Window().Panel().get_TextureTilesPerUnit(tiles), Status::Success);
    EXPECT_EQ(rig.Window().Panel().get_lPreviewPrimitive(primitive), Status::Success);
    EXPECT_EQ(rig.Window().Panel().get_bMaterialLibraryPanel(libraryPanel), Status::Success);
    EXPECT_EQ(tiles, 0.25F);
    EXPECT_EQ(primitive, 3);
    EXPECT_TRUE(libraryPanel);
    EXPECT_TRUE(rig.Window().Dock().isHidden());
    EXPECT_EQ(rig.Window().size(), QSize(1010, 707));
    EXPECT_TRUE(rig.prompts.shown.empty());
}

TEST(Restart, FirstStartOpensThePanelAndALaterOneKeepsTheUsersChoice)
{
    StudioRig rig;
    rig.Start();
    bool expanded = false;
    rig.Window().Panel().get_bMaterialPanel(expanded);
    EXPECT_TRUE(expanded);
    rig.Window().Panel().put_bMaterialPanel(false);
    rig.Stop();
    rig.Start();
    rig.Window().Panel().get_bMaterialPanel(expanded);
    EXPECT_FALSE(expanded);
}

QAction& ActionNamed(StudioRig& rig, const QString& text)
{
    for (QAction* action : rig.Window().findChildren<QAction*>()) {
        if (action->text().remove('&') == text) {
            return *action;
        }
    }
    throw std::logic_error("there is no such action");
}

TEST(PanelLayoutCommands, SavedLayoutKeepsWhatIsBeingEdited)
{
    StudioRig rig;
    rig.Start();
    rig.Select({0});
    rig.Choose("cboColor", "Bronze");
    rig.Window().Panel().put_lPreviewPrimitive(4);
    const auto material = rig.Shape(0)->Material();
    const int steps = rig.Window().History().count();

    ActionNamed(rig, "Fill the Dock").trigger();
    EXPECT_FALSE(rig.Find<QWidget>("cmdMaterialLibraryMore").isEnabled());
    ActionNamed(rig, "Saved Layout").trigger();
    EXPECT_TRUE(rig.Find<QWidget>("cmdMaterialLibraryMore").isEnabled());

    bool libraryPanel = true;
    std::int32_t primitive = 0;
    rig.Window().Panel().get_bMaterialLibraryPanel(libraryPanel);
    rig.Window().Panel().get_lPreviewPrimitive(primitive);
    EXPECT_FALSE(libraryPanel);
    EXPECT_EQ(primitive, 4);
    EXPECT_EQ(rig.Find<QComboBox>("cboColor").currentText(), "Bronze");
    EXPECT_EQ(rig.Shape(0)->Material(), material);
    EXPECT_EQ(rig.Window().History().count(), steps);
}

TEST(SettingsFile, GarbageIsKeptAsideAndToldOnce)
{
    StudioRig rig;
    ASSERT_TRUE(QDir().mkpath(QFileInfo(rig.SettingsFile()).path()));
    QFile file(rig.SettingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    constexpr char kGarbage[] = "\x00\xff[[[=\nno settings at all\n]=;%%%\\x";
    file.write(kGarbage, sizeof kGarbage - 1);
    file.close();

    rig.Start();
    rig.Type("txtAmbient", "12");
    rig.Stop();
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_NE(rig.prompts.shown.front().text.find("CorvexStudio.ini"), std::string::npos);
    rig.Start();
    EXPECT_EQ(rig.TextOf("txtAmbient"), "12");
}

// A folder in its place cannot be written by anyone, the administrator included.
TEST(SettingsFile, UnwritableIsToldOnceAndTheWorkGoesOn)
{
    StudioRig rig;
    ASSERT_TRUE(QDir().mkpath(rig.SettingsFile()));
    rig.Start();
    rig.Select({0});
    rig.Type("txtAmbient", "12");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 12);
    rig.Stop();
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_NE(rig.prompts.shown.front().text.find("CorvexStudio.ini"), std::string::npos);
}

}  // namespace
