#include "FakeRaytracer.h"
#include "RaytraceMessages.h"
#include "TextureMessages.h"
#include <CorvexMaterial/WarningCatalogue.h>

namespace {

using namespace CorvexTest;
using namespace CorvexMaterial;

class Simulation : public WithStartedControl {
protected:
    /// Of the buttons that are shut while a picture is made.
    static void ExpectButtons(QDialog& dialog, bool enabled)
    {
        for (const char* name : {"cmdOK", "cmdCancel", "cmdDefault", "cmdPreview"}) {
            EXPECT_EQ(FindIn<QWidget>(dialog, name).isEnabled(), enabled) << name;
        }
    }

    void Open(const std::function<void(QDialog&)>& use)
    {
        const DialogAnswer answer(use);
        rig.Press("cmdMaterialExtended");
        EXPECT_TRUE(answer.Given());
    }

    /// Takes the entry and the dialog's OK.
    void Accept(const char* list, const char* entry, std::function<void(QDialog&)> before = {})
    {
        Open([&](QDialog& dialog) {
            Choose(FindIn<QComboBox>(dialog, list), entry);
            if (before) {
                before(dialog);
            }
            Click(FindIn<QWidget>(dialog, "cmdOK"));
            EXPECT_FALSE(dialog.isVisible());
            ExpectButtons(dialog, true);
        });
    }

    bool Enabled(const char* name) { return rig.Find<QWidget>(name).isEnabled(); }
};

TEST_F(Simulation, OfAPatternBecomesThePrimaryTextureAndLocksItAlone)
{
    Accept("cboColorPattern", "Agate");
    const std::string jpeg = "/temporary/~CVX2.jpg";
    EXPECT_EQ(rig.log.DetailsOf("RaytraceServices.SaveAsJpeg"),
              std::vector<std::string>{"/temporary/~CVX1.bmp " + jpeg + " 80"});
    EXPECT_EQ(rig.Previewed().Textures.primary, jpeg);
    EXPECT_EQ(rig.Previewed().RayTrace.ColorPattern, 1);
    EXPECT_EQ(rig.platform.temporaryFiles.present, std::vector<std::string>{jpeg});
    EXPECT_EQ(rig.Changes(), 1U);
    ASSERT_EQ(rig.warnings.size(), 2U);
    EXPECT_EQ(rig.warnings[1].text.toStdString(), RowOf(WarningId::RaytraceSimulation).text);
    EXPECT_EQ(rig.warnings[1].key, "RaytraceSimulation");
    ASSERT_EQ(rig.host.exporter.requests.size(), 1U);
    EXPECT_EQ(rig.host.exporter.requests[0].view, CorvexSG::RaytraceView::FlatSample);
    EXPECT_EQ(rig.host.exporter.requests[0].attributes.ColorPattern, 1);

    auto& tabs = rig.Find<QTabBar>("tabChannels");
    tabs.setCurrentIndex(1);
    for (const char* name : {"cmdSelectTexture", "cmdDeleteTexture", "imgTexture_0"}) {
        EXPECT_FALSE(Enabled(name)) << name;
    }
    rig.Press("cmdTexturePopup");
    ASSERT_EQ(rig.platform.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.platform.prompts.shown[0].text, kPrimaryTextureDisabled);
    tabs.setCurrentIndex(2);
    for (const char* name : {"cmdSelectTexture", "cmdDeleteTexture", "imgTexture_1", "tabChannels",
                             "txtAmbient", "txtSpecular"}) {
        EXPECT_TRUE(Enabled(name)) << name;
    }
    CorvexDB::udtMaterial other;
    rig.Control().CopyFieldToFormMaterial(other);
    tabs.setCurrentIndex(1);
    EXPECT_TRUE(Enabled("cmdSelectTexture"));
}

TEST_F(Simulation, OfAPredefinedMaterialLocksTheListedControls)
{
    Accept("cboMaterialType", "Predefined");
    ASSERT_EQ(rig.warnings.size(), 2U);
    EXPECT_EQ(rig.warnings[1].text.toStdString(), RowOf(WarningId::RaytraceSimulation).otherText);
    const char* const listed[] = {
        "cmdSelectTexture", "cmdDeleteTexture", "imgTexture_0", "imgTexture_5",
        "tabChannels",      "lblAmbient",       "lblEmissive",  "lblSpecularHighlighting",
        "lblTransparency",  "txtAmbient",       "txtEmissive",  "txtSpecular",
        "txtTransparency"};
    for (const char* name : listed) {
        EXPECT_FALSE(Enabled(name)) << name;
    }
    for (const char* name : {"cboColor", "chkDoubleSided", "cmdMaterialExtended", "cmdPreview"}) {
        EXPECT_TRUE(Enabled(name)) << name;
    }
    ASSERT_EQ(rig.Control().put_lRaytraceType(0), Status::Success);
    for (const char* name : listed) {
        EXPECT_TRUE(Enabled(name)) << name;
    }
}

TEST_F(Simulation, GivesBackWhatItTookThePlaceOf)
{
    CorvexDB::udtMaterial own;
    own.Color = MakeColour({140, 120, 36});
    own.Specular = 35;
    own.Transparency = 20;
    own.Textures.primary = "/t/oak.png";
    rig.Control().CopyFieldToFormMaterial(own);
    Accept("cboMaterialType", "Predefined");
    const CorvexDB::udtMaterial glass = rig.Previewed();
    EXPECT_EQ(glass.Color, kWhite);
    Accept("cboPredefinedType", "Metal");
    EXPECT_NE(rig.Previewed().Textures.primary, glass.Textures.primary);

    rig.Control().CopyFieldToFormMaterial({});  // another shape, and back
    rig.Control().CopyFieldToFormMaterial(glass);
    Accept("cboMaterialType", "Custom");
    EXPECT_EQ(rig.Previewed().Color, own.Color);
    EXPECT_EQ(rig.Previewed().Textures, own.Textures);
    EXPECT_EQ(rig.Previewed().Specular, 35);
    EXPECT_EQ(rig.Previewed().Transparency, 20);

    Accept("cboMaterialType", "Predefined");
    Choose(rig.List("cboColor"), "Black");
    Accept("cboMaterialType", "Custom");
    EXPECT_EQ(rig.Previewed().Color, 0) << "chosen meanwhile";
}

TEST_F(Simulation, IsMadeForNoPlainMaterial)
{
    Open([](QDialog& dialog) {
        Click(FindIn<QWidget>(dialog, "chkMetallic"));
        dialog.accept();
    });
    EXPECT_EQ(rig.log.CountOf("SceneExporter.ExportRaytraceScene"), 0U);
    EXPECT_EQ(rig.warnings.size(), 1U);
    EXPECT_TRUE(rig.Previewed().RayTrace.Metallic);
}

TEST_F(Simulation, ThatFailsClosesWithOkAndNoTexture)
{
    auto& platform = rig.platform;
    auto& program = rig.host.applicationState.povRayProgram;
    const std::string installed = program;
    const auto expectBox = [&](std::string_view box) {
        Accept("cboColorPattern", "Wood");
        EXPECT_EQ(platform.prompts.shown.size(), box.empty() ? 0U : 1U);
        for (const Message& shown : platform.prompts.shown) {
            EXPECT_EQ(shown.text, box);
        }
        EXPECT_EQ(rig.Previewed().RayTrace.ColorPattern, 22);
        EXPECT_EQ(rig.Previewed().Textures.primary, "");
        EXPECT_EQ(rig.warnings.size(), 1U);
        EXPECT_TRUE(platform.temporaryFiles.present.empty());
        EXPECT_EQ(rig.Changes(), 1U);

        platform.processes.exitCode = 0;
        platform.temporaryFiles.imagesAreMade = true;
        platform.imageFormats.available = true;
        program = installed;
        platform.prompts.shown.clear();
        rig.warnings.clear();
        rig.Control().CopyFieldToFormMaterial({});
        rig.log.Clear();
    };
    platform.processes.exitCode = 1;
    expectBox(kRaytracerFailed);
    platform.temporaryFiles.imagesAreMade = false;
    expectBox(kRaytracerFailed);
    rig.log.FailEach("SceneExporter.ExportRaytraceScene", Fault::UnknownObject);
    expectBox(kPreviewFailed);
    platform.imageFormats.available = false;
    expectBox(kJpegWriterMissing);
    rig.log.FailEach("RaytraceServices.SaveAsJpeg", Fault::ClassifiedError);
    expectBox(kJpegWriterMissing);
    program.clear();
    expectBox("");
}

TEST_F(Simulation, IsAnnouncedUnderItsOwnTitle)
{
    rig.platform.settings.PutTip("Simulation Texture", "1");
    std::unique_ptr<DialogAnswer> notice;
    Accept("cboColorPattern", "Agate", [&notice](QDialog&) {
        notice = std::make_unique<DialogAnswer>([](QDialog& box) {
            EXPECT_EQ(box.windowTitle(), "Simulation Texture");
            EXPECT_EQ(FindIn<QLabel>(box, "lblWarning").text().toStdString(),
                      RowOf(WarningId::SimulationTexture).text);
            box.accept();
        });
    });
    EXPECT_TRUE(notice->Given());
    EXPECT_EQ(rig.platform.settings.GetTip("Simulation Texture"), "1");
}

TEST_F(Simulation, ThatIsCancelledSaysNothing)
{
    FakeRaytracer raytracer(rig);
    raytracer.Runs("exec sleep 60");
    QTimer watch;
    QDialog* extended = nullptr;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        QDialog* const progress = OpenDialog();
        if (progress == extended) {
            return;
        }
        ExpectButtons(*extended, false);
        Click(FindIn<QWidget>(*progress, "cmdCancel"));
    });
    Accept("cboColorPattern", "Agate", [&](QDialog& dialog) {
        extended = &dialog;
        watch.start(10);
    });
    watch.stop();
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    EXPECT_EQ(rig.warnings.size(), 1U);
    EXPECT_EQ(rig.Previewed().Textures.primary, "");
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

TEST_F(Simulation, TheDialogsPictureFollowsItsAttributesAndLeavesThePanelsAlone)
{
    FakeRaytracer raytracer(rig);
    raytracer.Runs("cp \"$picture\" \"$out\"");
    Open([this](QDialog& dialog) {
        auto* own = dynamic_cast<RecordingViewport*>(rig.host.viewports.made.back().data());
        ASSERT_TRUE(own != nullptr && dialog.isAncestorOf(own));
        const auto shown = [own] { return own->TheScene().Shown()->Material(); };
        auto& type = FindIn<QComboBox>(dialog, "cboMaterialType");
        auto& caption = FindIn<QLabel>(dialog, "lblPicture");
        QTRY_COMPARE(caption.text(), "Live view");
        type.setCurrentIndex(1);
        dialog.findChild<QComboBox*>("cboPredefinedType")->setCurrentIndex(1);
        QTRY_COMPARE(shown().Color, MakeColour({0xB4, 0xBA, 0xC0}));
        EXPECT_EQ(shown().Textures, CorvexDB::TextureFiles());
        type.setCurrentIndex(0);
        Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Checker");
        rig.platform.choosers.colours = {0};
        Click(*dialog.findChild<QAbstractButton*>("picColorPattern_1"));
        QTRY_COMPARE(shown().Color, 0xBCBCBC);
        Click(*dialog.findChild<QAbstractButton*>("cmdPreview"));
        EXPECT_EQ(caption.text(), "Raytraced");
        dialog.reject();
    });
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    ASSERT_FALSE(rig.host.exporter.requests.empty());
    EXPECT_EQ(rig.host.exporter.requests.back().attributes.ColorPattern, 5);
    EXPECT_EQ(rig.Previewed().RayTrace.ColorPattern, 0);
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

TEST_F(Simulation, AtRestThePictureIsRenderedUnaskedAndNothingIsSaidWhenItFails)
{
    FakeRaytracer raytracer(rig);
    raytracer.Runs("cp \"$picture\" \"$out\"");
    Open([&](QDialog& dialog) {
        const auto& caption = FindIn<QLabel>(dialog, "lblPicture");
        auto& reflection = FindIn<QSlider>(dialog, "sldReflection");
        QTRY_COMPARE(caption.text(), "Raytraced");
        EXPECT_TRUE(dialog.findChild<QAbstractButton*>("cmdOK")->isEnabled());
        raytracer.Runs("exit 3");
        reflection.setValue(7);
        QTRY_COMPARE(caption.text(), "Live view");
        reflection.setValue(0);
        QTRY_COMPARE(caption.text(), "Raytraced");
        EXPECT_EQ(rig.host.exporter.requests.size(), 2U) << "it was rendered before";
        dialog.reject();
    });
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

TEST_F(Simulation, ClosingTheDialogEndsWhatIsRenderedUnasked)
{
    FakeRaytracer raytracer(rig);
    raytracer.Runs("echo $$ > \"${ini%ini}pid\"; exec sleep 60");
    pid_t process = 0;
    Open([&](QDialog& dialog) {
        const auto running = [&] {
            for (const QString& name : raytracer.Leftovers()) {
                QFile file(raytracer.Folder() + '/' + name);
                if (name.endsWith("pid") && file.open(QIODevice::ReadOnly)) {
                    process = file.readAll().trimmed().toInt();
                    file.remove();
                }
            }
            return process != 0;
        };
        QTRY_VERIFY(running());
        dialog.reject();
    });
    EXPECT_NE(kill(process, 0), 0) << "it goes on";
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

}  // namespace
