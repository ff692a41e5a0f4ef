#include "CommaLocale.h"
#include "EndRequests.h"
#include "SampleMaterial.h"
#include "StudioRig.h"

#include <CorvexMaterial/Schema.h>

#include <QFileDialog>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScreen>
#include <QSettings>
#include <QToolButton>

namespace {

using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;
using StudioTest::StudioRig;

const QString kSettings = QStringLiteral("Corvex/CorvexStudio.ini");

TEST(Restart, BringsMaterialPreviewAndWindowBackUnderACommaLocale)
{
    const CorvexTest::CommaLocale comma;
    StudioRig rig;
    rig.Start();
    EXPECT_TRUE(rig.Read(&IMaterial::get_bMaterialPanel));
    EXPECT_TRUE(rig.Read(&IMaterial::get_bMaterialLibraryPanel));
    rig.Choose("cboColor", "Bronze");
    rig.Type("txtAmbient", "85");
    rig.Choose("cboAlphaTest", "Greater/Eq.");
    rig.Press("chkDoubleSided");
    ASSERT_EQ(rig.Window().Panel().put_TextureTilesPerUnit(0.25F), Status::Success);
    ASSERT_EQ(rig.Window().Panel().put_lPreviewPrimitive(3), Status::Success);
    ASSERT_EQ(rig.Window().Panel().put_bMaterialLibraryPanel(false), Status::Success);
    ASSERT_EQ(rig.Window().Panel().put_bMaterialPanel(false), Status::Success);
    rig.Window().Dock().hide();
    rig.Window().resize(1010, 707);
    rig.Stop();
    rig.Start();

    EXPECT_EQ(rig.Find<QComboBox>("cboColor").currentText(), "Bronze");
    EXPECT_EQ(rig.TextOf("txtAmbient"), "85");
    EXPECT_EQ(rig.Find<QComboBox>("cboAlphaTest").currentText(), "Greater/Eq.");
    EXPECT_TRUE(rig.Find<QCheckBox>("chkDoubleSided").isChecked());
    EXPECT_EQ(rig.Read(&IMaterial::get_TextureTilesPerUnit), 0.25F);
    EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), 3);
    EXPECT_FALSE(rig.Read(&IMaterial::get_bMaterialLibraryPanel));
    EXPECT_FALSE(rig.Read(&IMaterial::get_bMaterialPanel));
    EXPECT_TRUE(rig.Window().Dock().isHidden());
    EXPECT_EQ(rig.Window().size(), QSize(1010, 707));
    EXPECT_TRUE(rig.prompts.shown.empty());
}

TEST(Restart, TheFirstWindowFitsTheScreenAndAFloatingPanelComesBackAboveIt)
{
    StudioRig rig;
    rig.Start();
    constexpr int kTitleBar = 30;
    EXPECT_LE(rig.Window().height() + kTitleBar, rig.Window().screen()->availableSize().height());
    rig.Window().Dock().setFloating(true);
    rig.Stop();
    rig.Start();
    struct : QObject {
        bool eventFilter(QObject* /*watched*/, QEvent* event) override
        {
            raised = raised || event->type() == QEvent::ZOrderChange;
            return false;
        }
        bool raised = false;
    } watch;
    rig.Window().Dock().installEventFilter(&watch);
    QCoreApplication::processEvents();
    EXPECT_TRUE(rig.Window().Dock().isFloating() && watch.raised);
}

TEST(Restart, ExportBeginsWhereTheLastOneEnded)
{
    StudioRig rig;
    rig.Start();
    const QString folder = rig.PathOf("out");
    QDir().mkpath(folder);
    const auto choose = [&](const char* menu, const auto& answer) {
        const CorvexTest::DialogAnswer given(
            [&](QDialog& dialog) { answer(dynamic_cast<QFileDialog&>(dialog)); });
        rig.Trigger(menu);
        EXPECT_TRUE(given.Given());
    };
    choose("POV-Ray Scene...", [&](QFileDialog& dialog) {
        dialog.setDirectory(folder);
        static_cast<QDialog&>(dialog).accept();
    });
    rig.AwaitFiles();
    EXPECT_TRUE(QFile::exists(folder + "/scene.pov"));
    rig.Stop();
    rig.Start();
    choose("RIB...", [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder);
        dialog.reject();
    });
}

TEST(SettingsFile, GarbageIsKeptAsideAndToldOnce)
{
    StudioRig rig;
    constexpr char kGarbage[] = "\x00\xff[[[=\nno settings at all\n]=;%%%\\x";
    rig.files.Write(kSettings, QByteArray(kGarbage, sizeof kGarbage - 1));
    rig.Start();
    rig.Type("txtAmbient", "12");
    rig.Stop();
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_NE(rig.prompts.shown.front().text.find("CorvexStudio.ini"), std::string::npos);
    rig.Start();
    EXPECT_EQ(rig.TextOf("txtAmbient"), "12");
}

// Written by the first program that had these keys.
TEST(SettingsFile, OfAnOldStudioIsReadAndKept)
{
    StudioRig rig;
    for (const auto* name : {"Materials.cvm", "Textures.cvt"}) {
        rig.files.Write(QStringLiteral("data/") + name,
                        CorvexTest::ContentOf(QStringLiteral(OLD_FILES "/") + name));
    }
    const QString file =
        rig.files.Write(kSettings, CorvexTest::ContentOf(OLD_FILES "/CorvexStudio.ini"));
    const auto values = [&file] {
        const QSettings settings(file, QSettings::IniFormat);
        std::map<std::string, std::string> stored;
        for (const QString& key : settings.allKeys()) {
            stored[key.toStdString()] = settings.value(key).toByteArray().toStdString();
        }
        return stored;
    };
    const auto before = values();
    const auto shown = [&rig] {
        return dynamic_cast<studio::StudioShape&>(*rig.Read(&IMaterial::get_csMaterialShape))
            .Material();
    };
    rig.Start();
    CorvexDB::udtMaterial kept = CorvexTest::AsKeptBefore(CorvexTest::KeptMaterial());
    kept.Ambient = 99;
    EXPECT_TRUE(shown() == kept);
    EXPECT_EQ(rig.Read(&IMaterial::get_lPreviewPrimitive), 1);
    EXPECT_EQ(rig.Find<QComboBox>("cboMaterialLibrary").currentText(), "Materials.cvm");
    EXPECT_EQ(rig.Find<QComboBox>("cboTextureLibrary").currentText(), "Textures.cvt");
    EXPECT_EQ(rig.Window().size(), QSize(1010, 707));
    const CorvexTest::DialogAnswer options([](QDialog& dialog) {
        EXPECT_EQ(dialog.findChild<QComboBox*>("raytracer")->currentIndex(), 1);
        EXPECT_EQ(dialog.findChild<QComboBox*>("antialias")->currentIndex(), 2);
        EXPECT_EQ(dialog.findChild<QListWidget*>("folders")->item(1)->text(),
                  "/tmp/models/St\u00FChle, 4");
        EXPECT_EQ(dialog.findChild<QPlainTextEdit*>("customFields")->toPlainText(),
                  "Supplier\n\nPreis, \u20AC");
        dialog.accept();
    });
    rig.Trigger("Options...");
    EXPECT_TRUE(QTest::qWaitFor([&] { return options.Given(); }));
    rig.Stop();
    auto after = values();
    for (const auto& row : CorvexMaterial::AttributeRows()) {
        if (row.group == CorvexMaterial::AttributeGroup::Projection) {
            after.erase("Application/" + std::string(row.currentKey));  // younger than the file
        }
    }
    EXPECT_EQ(after.size(), before.size());
    after.erase("Studio/WindowGeometry");  // where the desktop put it
    after.erase("Studio/WindowDocks");     // there are more than there were
    for (const auto& [key, value] : after) {
        EXPECT_TRUE(before.contains(key) && before.at(key) == value) << key << " is " << value;
    }

    rig.Start();
    rig.Press("cmdMaterialResetUserDefaults");
    CorvexDB::udtMaterial ofUser = CorvexTest::AsKeptBefore(CorvexTest::FullMaterial());
    ofUser.RayTrace.MaterialType = 0;
    ofUser.RayTrace.ColorPattern = 0;
    EXPECT_TRUE(shown() == ofUser);
    EXPECT_TRUE(rig.prompts.shown.empty());
}

// A folder in its place cannot be written by anyone, the administrator included.
TEST(SettingsFile, UnwritableIsAskedAboutBeforeTheStudioQuits)
{
    StudioRig rig;
    ASSERT_TRUE(QDir().mkpath(rig.PathOf(kSettings)));
    rig.Start();
    rig.Select({0});
    rig.Type("txtAmbient", "12");
    EXPECT_EQ(rig.Shape(0)->Material().Ambient, 12);
    rig.Press("cmdMaterialRemember");
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_NE(rig.prompts.shown.front().text.find("CorvexStudio.ini"), std::string::npos);
    rig.Window().History().setClean();
    rig.prompts.answers = {false, true};
    EXPECT_FALSE(rig.Window().close());
    EXPECT_TRUE(rig.Window().close());
    rig.prompts.answers = {true};
    rig.Stop();
    EXPECT_EQ(rig.prompts.shown.size(), 1U);
}

// As a session's end or a `kill` does it, with a dialog open and settings that cannot be written.
TEST(Ending, ASignalQuitsAndSavesWithoutAQuestion)
{
    StudioRig rig;
    rig.Start();
    rig.Choose("cboColor", "Bronze");
    for (const bool writable : {true, false}) {
        if (!writable) {
            rig.Start();
            EXPECT_EQ(rig.Find<QComboBox>("cboColor").currentText(), "Bronze");
            ASSERT_TRUE(QFile::remove(rig.PathOf(kSettings)));
            ASSERT_TRUE(QDir().mkpath(rig.PathOf(kSettings)));
        }
        const CorvexMaterial::EndRequests requests;
        QObject::connect(&requests, &CorvexMaterial::EndRequests::Asked, &rig.Window(),
                         &studio::MainWindow::QuitUnasked);
        QTimer::singleShot(0, [&rig] {
            QTimer::singleShot(100, [] { std::raise(SIGTERM); });
            rig.Trigger("Export Materials...");
        });
        EXPECT_EQ(QApplication::exec(), 0);
        EXPECT_FALSE(rig.Window().isVisible());
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_EQ(rig.log.CountOf("Prompts.AskYesNo"), 0U);
        rig.Stop();
    }
}

}  // namespace
