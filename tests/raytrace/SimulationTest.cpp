#include "FakeRaytracer.h"
#include <CorvexMaterial/WarningCatalogue.h>

namespace {

using namespace CorvexTest;
using namespace CorvexMaterial;

class Simulation : public ::testing::Test {
protected:
    void SetUp() override
    {
        rig.platform.settings.PutTip("POVRayConfiguration", "0");
        rig.platform.settings.PutTip("Simulation Texture", "0");
        rig.Start();
    }

    void Answer(const std::function<void(QDialog&)>& choose)
    {
        const DialogAnswer answer([&choose](QDialog& dialog) {
            choose(dialog);
            Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
            EXPECT_FALSE(dialog.isVisible());
            for (const char* name : {"cmdOK", "cmdCancel", "cmdDefault", "cmdPreview"}) {
                EXPECT_TRUE(dialog.findChild<QAbstractButton*>(name)->isEnabled()) << name;
            }
        });
        rig.Press("cmdMaterialExtended");
        EXPECT_TRUE(answer.Given());
    }

    void ChoosePattern()
    {
        Answer([](QDialog& dialog) {
            Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Agate");
        });
    }

    void ChoosePredefined()
    {
        Answer([](QDialog& dialog) {
            Choose(*dialog.findChild<QComboBox*>("cboMaterialType"), "Predefined");
        });
    }

    bool Enabled(const char* name) { return rig.Find<QWidget>(name).isEnabled(); }

    ControlRig rig;
};

TEST_F(Simulation, OfAPatternBecomesThePrimaryTextureAndLocksItAlone)
{
    ChoosePattern();
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
    EXPECT_EQ(rig.platform.prompts.shown[0].text,
              "The primary texture is disabled because a raytracing material is active.");
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
    ChoosePredefined();
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
    ChoosePredefined();
    const CorvexDB::udtMaterial glass = rig.Previewed();
    EXPECT_EQ(glass.Color, kWhite);
    Answer([](QDialog& dialog) {
        Choose(*dialog.findChild<QComboBox*>("cboPredefinedType"), "Metal");
    });
    EXPECT_NE(rig.Previewed().Textures.primary, glass.Textures.primary);

    rig.Control().CopyFieldToFormMaterial({});  // another shape, and back
    rig.Control().CopyFieldToFormMaterial(glass);
    const auto custom = [](QDialog& dialog) {
        Choose(*dialog.findChild<QComboBox*>("cboMaterialType"), "Custom");
    };
    Answer(custom);
    EXPECT_EQ(rig.Previewed().Color, own.Color);
    EXPECT_EQ(rig.Previewed().Textures, own.Textures);
    EXPECT_EQ(rig.Previewed().Specular, 35);
    EXPECT_EQ(rig.Previewed().Transparency, 20);

    ChoosePredefined();
    Choose(rig.List("cboColor"), "Black");
    Answer(custom);
    EXPECT_EQ(rig.Previewed().Color, 0) << "chosen meanwhile";
}

TEST_F(Simulation, IsMadeForNoPlainMaterial)
{
    Answer([](QDialog& dialog) { dialog.findChild<QAbstractButton*>("chkMetallic")->click(); });
    EXPECT_EQ(rig.log.CountOf("SceneExporter.ExportRaytraceScene"), 0U);
    EXPECT_EQ(rig.warnings.size(), 1U);
    EXPECT_TRUE(rig.Previewed().RayTrace.Metallic);
}

TEST_F(Simulation, ThatFailsClosesWithOkAndNoTexture)
{
    struct Row {
        const char* name;
        std::function<void(ControlRig&)> spoil;
        std::vector<const char*> boxes;
    };
    const char* const failed = "Errors occurred while Raytracing.";
    const char* const preview = "An error occurred while raytracing.";
    const char* const gdi = "In order to use this feature Microsoft's GDI+ must be installed.";
    for (const Row& row : {
             Row{"exit code", [](ControlRig& r) { r.platform.processes.exitCode = 1; }, {failed}},
             Row{"no image",
                 [](ControlRig& r) { r.platform.temporaryFiles.imagesAreMade = false; },
                 {failed}},
             Row{"export",
                 [](ControlRig& r) {
                     r.log.FailEach("SceneExporter.ExportRaytraceScene", Fault::UnknownObject);
                 },
                 {preview}},
             Row{"no JPEG writer",
                 [](ControlRig& r) { r.platform.imageFormats.available = false; },
                 {gdi}},
             Row{"conversion",
                 [](ControlRig& r) {
                     r.log.FailEach("RaytraceServices.SaveAsJpeg", Fault::ClassifiedError);
                 },
                 {gdi}},
             Row{"no raytracer",
                 [](ControlRig& r) { r.host.applicationState.povRayProgram.clear(); },
                 {}},
         }) {
        SCOPED_TRACE(row.name);
        ControlRig other;
        other.platform.settings.PutTip("POVRayConfiguration", "0");
        other.platform.settings.PutTip("Simulation Texture", "0");
        other.Start();
        row.spoil(other);
        const DialogAnswer answer([](QDialog& dialog) {
            Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Wood");
            Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
        });
        other.Press("cmdMaterialExtended");
        ASSERT_EQ(other.platform.prompts.shown.size(), row.boxes.size());
        for (std::size_t i = 0; i < row.boxes.size(); ++i) {
            EXPECT_TRUE(other.platform.prompts.shown[i].text.starts_with(row.boxes[i]));
        }
        EXPECT_EQ(other.Previewed().RayTrace.ColorPattern, 22);
        EXPECT_EQ(other.Previewed().Textures.primary, "");
        EXPECT_EQ(other.warnings.size(), 1U);
        EXPECT_TRUE(other.platform.temporaryFiles.present.empty());
        EXPECT_EQ(other.Changes(), 1U);
    }
}

TEST_F(Simulation, IsAnnouncedUnderItsOwnTitle)
{
    rig.platform.settings.PutTip("Simulation Texture", "1");
    std::unique_ptr<DialogAnswer> notice;
    Answer([&notice](QDialog& dialog) {
        Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Agate");
        notice = std::make_unique<DialogAnswer>([](QDialog& box) {
            EXPECT_EQ(box.windowTitle(), "Simulation Texture");
            EXPECT_EQ(box.findChild<QLabel*>("lblWarning")->text(),
                      "Corvex will now use your raytracer to create a Corvex material that "
                      "simulates the raytracing material.");
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
        for (const char* name : {"cmdOK", "cmdCancel", "cmdDefault", "cmdPreview"}) {
            EXPECT_FALSE(extended->findChild<QAbstractButton*>(name)->isEnabled());
        }
        Click(*progress->findChild<QAbstractButton*>("cmdCancel"));
    });
    Answer([&](QDialog& dialog) {
        Choose(*dialog.findChild<QComboBox*>("cboColorPattern"), "Agate");
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
    const DialogAnswer answer([this](QDialog& dialog) {
        auto* own = dynamic_cast<RecordingViewport*>(rig.host.viewports.made.back().data());
        ASSERT_TRUE(own != nullptr && dialog.isAncestorOf(own));
        const auto shown = [own] { return own->TheScene().Shown()->Material(); };
        auto& type = *dialog.findChild<QComboBox*>("cboMaterialType");
        auto& caption = *dialog.findChild<QLabel*>("lblPicture");
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
    rig.Press("cmdMaterialExtended");
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
    const DialogAnswer answer([&](QDialog& dialog) {
        const auto& caption = *dialog.findChild<QLabel*>("lblPicture");
        auto& reflection = *dialog.findChild<QSlider*>("sldReflection");
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
    rig.Press("cmdMaterialExtended");
    EXPECT_TRUE(rig.platform.prompts.shown.empty());
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

TEST_F(Simulation, ClosingTheDialogEndsWhatIsRenderedUnasked)
{
    FakeRaytracer raytracer(rig);
    raytracer.Runs("echo $$ > \"${ini%ini}pid\"; exec sleep 60");
    pid_t process = 0;
    const DialogAnswer answer([&](QDialog& dialog) {
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
    rig.Press("cmdMaterialExtended");
    EXPECT_NE(kill(process, 0), 0) << "it goes on";
    EXPECT_TRUE(raytracer.Leftovers().isEmpty());
}

}  // namespace
