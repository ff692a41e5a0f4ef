#include "tests/control/SampleMaterial.h"
#include "tests/support/ControlRig.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>

namespace {

using namespace CorvexTest;
using CorvexMaterial::Material;
using CorvexMaterial::Status;

struct Step {
    std::string name;
    /// The status of a member; nothing for what a user does.
    std::function<std::optional<Status>(ControlRig&)> act;
};

Step Member(std::string name, std::function<Status(Material&, ControlRig&)> call)
{
    return {std::move(name), [call](ControlRig& rig) { return call(rig.Control(), rig); }};
}

template <typename Value>
Step Put(std::string name, Status (CorvexMaterial::IMaterial::*put)(const Value&), Value value)
{
    return {std::move(name), [=](ControlRig& rig) { return (rig.Control().*put)(value); }};
}

Step UserDoes(std::string name, std::function<void(ControlRig&)> act)
{
    return {std::move(name), [act](ControlRig& rig) {
                act(rig);
                return std::optional<Status>();
            }};
}

Step Pressed(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) { rig.Press(name); });
}

Step Typed(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        auto& field = rig.Field(name);
        Type(field, field.text() == "7" ? "8" : "7");
    });
}

std::vector<Step> Members()
{
    std::vector<Step> steps;
    using M = Material;
    const auto add = [&](const char* name, Status (M::*call)()) {
        steps.push_back(
            Member(name, [call](M& control, ControlRig&) { return (control.*call)(); }));
    };
    add("InitializeMaterialPreviewScene", &M::InitializeMaterialPreviewScene);
    add("LoadSavedStatus", &M::LoadSavedStatus);
    add("SaveStatus", &M::SaveStatus);
    add("RenderMaterial", &M::RenderMaterial);
    add("DefaultMaterial", &M::DefaultMaterial);
    add("ResetMiscellaneous", &M::ResetMiscellaneous);
    add("ResetDevices", &M::ResetDevices);
    add("pReleaseMaterialLibrarySelection", &M::pReleaseMaterialLibrarySelection);
    add("pReleaseTextureLibrarySelection", &M::pReleaseTextureLibrarySelection);
    add("pAlphaIsTransparentUpdated", &M::pAlphaIsTransparentUpdated);
    steps.push_back(Member("SetBackColor",
                           [](M& control, ControlRig&) { return control.SetBackColor(1, 2, 3); }));
    steps.push_back(Member("CopyFieldToFormMaterial", [](M& control, ControlRig&) {
        return control.CopyFieldToFormMaterial(KeptMaterial());
    }));
    steps.push_back(Member("SetTexturesAvoidStateChange", [](M& control, ControlRig&) {
        return control.SetTexturesAvoidStateChange("/p", "/a", "/o", "/b", "/s", "/e");
    }));
    steps.push_back(Member("SetTextureCropping", [](M& control, ControlRig&) {
        return control.SetTextureCropping(0.1F, 0.2F, 0.3F, 0.4F);
    }));
    steps.push_back(Member("sCreateRayTraceCombinedAttributes", [](M& control, ControlRig&) {
        std::string text;
        return control.sCreateRayTraceCombinedAttributes(text);
    }));
    steps.push_back(Member("colTextures", [](M& control, ControlRig&) {
        CorvexDB::TextureCollection* textures = nullptr;
        return control.get_colTextures(textures);
    }));
    steps.push_back(Member("ApplyShapeMaterial", [](M& control, ControlRig& rig) {
        control.SetTexturesAvoidStateChange("", "", "", "", "", "");  // forgets what was gathered
        RecordingShape shape(rig.log, "selected", rig.host.sceneGraph.missingMeshes);
        return control.ApplyShapeMaterial(rig.host.Viewport()->TheScene(), shape, false, nullptr,
                                          nullptr, {}, {}, false, {}, {});
    }));
    steps.push_back(Member("SetMaxStatus",
                           [](M& control, ControlRig&) { return control.SetMaxStatus(20000); }));
    return steps;
}

std::vector<Step> Properties()
{
    std::vector<Step> steps;
    using I = CorvexMaterial::IMaterial;
    steps.push_back(Put("bMaterialPanel", &I::put_bMaterialPanel, true));
    steps.push_back(Put("bTexturePanel", &I::put_bTexturePanel, true));
    steps.push_back(Put("bMaterialLibraryPanel", &I::put_bMaterialLibraryPanel, true));
    steps.push_back(Put("lVBColor", &I::put_lVBColor, 255));
    steps.push_back(Put("lPreviewPrimitive", &I::put_lPreviewPrimitive, 3));
    for (const auto put : {&I::put_TextureFileName, &I::put_TextureOverlayFileName,
                           &I::put_TextureBumpmapFileName, &I::put_TextureSpecularMapFileName,
                           &I::put_TextureEnvironmentMapFileName, &I::put_TextureAlphaFileName}) {
        steps.push_back(Put("texture file", put, std::string("/a.png")));
    }
    for (const auto put : {&I::put_TextureTilesPerUnit, &I::put_TextureOriginU,
                           &I::put_TextureOriginV, &I::put_TextureScaleU, &I::put_TextureScaleV}) {
        steps.push_back(Put("placement", put, 0.5F));
    }
    for (const auto put : {&I::put_lRaytraceType, &I::put_lRaytracePredefinedType,
                           &I::put_lRaytraceColorPatternType}) {
        steps.push_back(Put("raytrace position", put, 0));
    }
    steps.push_back(Put("FlatWrapType", &I::put_FlatWrapType, CorvexDB::FlatWrapType::SizeToFit));
    steps.push_back(Put("WrapType", &I::put_WrapType, CorvexDB::WrapType::Flat));
    steps.push_back(Put("ApplyRelative", &I::put_ApplyRelative, CorvexDB::ApplyMode::Relative));
    return steps;
}

std::vector<Step> UserActions()
{
    std::vector<Step> steps;
    for (const char* name :
         {"chkFlipU", "chkFlipV", "chkDoubleSided", "chkApplyRelative", "chkAlphaIsTransparent",
          "cmdMaterialRemember", "cmdMaterialResetUserDefaults", "cmdMaterialResetDefaults",
          "cmdMiscellaneousResetToDefaults", "cmdAdvancedOptionsResetDefaults", "chkTextureLibrary",
          "chkMaterialLibrary", "chkMaterialPanel"}) {
        steps.push_back(Pressed(name));
    }
    for (const char* name : {"cmdSelectColor", "picVBColor"}) {
        steps.push_back(UserDoes(name, [name](ControlRig& rig) {
            rig.platform.choosers.colours = {0x010203};
            rig.Press(name);
        }));
    }
    steps.push_back(UserDoes("cboColor", [](ControlRig& rig) {
        rig.platform.choosers.colours = {0x030201};
        Choose(rig.List("cboColor"), "Custom");
    }));
    steps.push_back(UserDoes("cboAlphaTest",
                             [](ControlRig& rig) { Choose(rig.List("cboAlphaTest"), "Less"); }));
    for (const char* name : {"txtEmissive", "txtSpecular", "txtAmbient", "txtTransparency",
                             "txtAlphaTestReference", "txtTexture2Translucency"}) {
        steps.push_back(Typed(name));
    }
    steps.push_back(UserDoes("cmdPreviewPrimitive", [](ControlRig& rig) {
        const DialogAnswer answer(
            [](QDialog& dialog) { Click(*dialog.findChild<QAbstractButton*>("cmdPrimitive_1")); });
        rig.Press("cmdPreviewPrimitive");
    }));
    steps.push_back(UserDoes("the viewport", [](ControlRig& rig) {
        rig.host.Viewport()->listener->ViewChanged();
        rig.host.Viewport()->listener->PositionChanged("here");
    }));
    for (const char* kind : {"Material", "Texture"}) {
        for (const char* change : {"More", "Less"}) {
            const std::string name = std::string("cmd") + kind + "Library" + change;
            steps.push_back(UserDoes(name, [name](ControlRig& rig) {
                rig.Control().put_bTexturePanel(true);
                rig.Control().put_bMaterialLibraryPanel(true);
                rig.Press(name.c_str());
            }));
        }
    }
    return steps;
}

using EnabledStates = std::map<QString, bool>;

EnabledStates StatesOf(ControlRig& rig)
{
    EnabledStates states;
    for (const QWidget* widget : rig.Control().findChildren<QWidget*>()) {
        if (!widget->objectName().isEmpty()) {
            states[widget->objectName()] = widget->isEnabled();
        }
    }
    return states;
}

class FaultLoop : public ::testing::Test {
protected:
    void SetUp() override { rig.Start(); }

    void Repeat(const std::vector<Step>& steps)
    {
        for (const Step& step : steps) {
            FailEachCallOf(step);
        }
    }

    /// Runs the step again and again, each time with its next call failing, until it has no more.
    void FailEachCallOf(const Step& step)
    {
        const EnabledStates before = StatesOf(rig);
        Prepare();
        Run(step);
        EXPECT_TRUE(rig.platform.prompts.shown.empty()) << step.name;
        const EnabledStates after = StatesOf(rig);
        for (const Fault fault : kFaults) {
            for (std::size_t number = 0; FailOneCallOf(step, number, fault); ++number) {
                const EnabledStates now = StatesOf(rig);
                EXPECT_TRUE(now == before || now == after) << step.name << ", call " << number;
                ExpectTheNextEditWorks();
            }
        }
    }

    /// False when the step has no call of this number.
    bool FailOneCallOf(const Step& step, std::size_t number, Fault fault)
    {
        Prepare();
        rig.log.FailCall(number, fault);
        const auto status = Run(step);
        if (!rig.log.Failed()) {
            return false;
        }
        SCOPED_TRACE(step.name + " with failing " + *rig.log.FailedCall());
        EXPECT_NE(status.value_or(Status::Failed), Status::Success);
        EXPECT_LE(rig.platform.prompts.shown.size(), 1U);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        return true;
    }

    void Prepare()
    {
        rig.Control().put_bMaterialPanel(true);
        rig.log.Clear();
        rig.platform.prompts.shown.clear();
    }

    std::optional<Status> Run(const Step& step)
    {
        try {
            return step.act(rig);
        } catch (const std::logic_error&) {
            throw;  // the rig's own: a widget is missing, hidden or disabled
        } catch (...) {
            ADD_FAILURE() << "an exception came out of " << step.name;
            return std::nullopt;
        }
    }

    void ExpectTheNextEditWorks()
    {
        Prepare();
        rig.Press("chkFlipV");
        EXPECT_EQ(rig.Changes(), 1U);
        EXPECT_EQ(rig.Previewed().WrapOrientationV, rig.Tick("chkFlipV").isChecked());
        EXPECT_TRUE(rig.platform.prompts.shown.empty());
    }

    ControlRig rig;
};

TEST_F(FaultLoop, EveryMemberReturnsAStatusAndLeavesAUsableControl)
{
    Repeat(Members());
}

TEST_F(FaultLoop, EveryWrittenPropertyReturnsAStatusAndLeavesAUsableControl)
{
    Repeat(Properties());
}

TEST_F(FaultLoop, EveryUserActionLeavesAUsableControl)
{
    Repeat(UserActions());
}

TEST_F(FaultLoop, AFailedDisplayOfTheErrorIsNoFurtherError)
{
    ControlRig other;
    other.host.sceneGraph.missingMeshes = {"previewcube.x"};
    other.Create();
    other.Control().SetSceneDetails(other.host.sceneGraph);
    other.log.FailEach("Prompts.Show", Fault::UnknownObject);
    EXPECT_EQ(other.Control().InitializeMaterialPreviewScene(), Status::FileFailed);
}

/// The first and the last call of each name: a termination has well over a hundred calls.
std::set<std::size_t> CallsToFail(const CallLog& log)
{
    std::map<std::string, std::pair<std::size_t, std::size_t>> firstAndLast;
    for (std::size_t i = 0; i < log.Calls().size(); ++i) {
        const auto [row, added] = firstAndLast.try_emplace(log.Calls()[i].name, i, i);
        row->second.second = i;
    }
    std::set<std::size_t> numbers;
    for (const auto& [name, ends] : firstAndLast) {
        numbers.insert({ends.first, ends.second});
    }
    return numbers;
}

TEST_F(FaultLoop, TerminationAlwaysComesToItsEnd)
{
    rig.Terminate();
    const auto numbers = CallsToFail(rig.log);
    ASSERT_GE(numbers.size(), 6U);
    for (const std::size_t number : numbers) {
        for (const Fault fault : kFaults) {
            rig.Start();
            rig.platform.prompts.shown.clear();
            rig.log.FailCall(number, fault);
            rig.Terminate();
            SCOPED_TRACE(rig.log.FailedCall().value_or("nothing"));
            EXPECT_TRUE(rig.log.Failed());
            EXPECT_EQ(rig.log.DetailsOf("Diagnostics.RecordEvent"),
                      (std::vector<std::string>{"Material instance terminating",
                                                "Material instance terminated"}));
            EXPECT_LE(rig.platform.prompts.shown.size(), 1U);
        }
    }
}

TEST_F(FaultLoop, AControlThatCannotBeMadeLeavesNothingBehind)
{
    rig.Terminate();
    rig.log.Clear();
    rig.Create();
    const std::size_t calls = rig.log.Entered();
    rig.Terminate();
    ASSERT_GT(calls, 0U);
    for (std::size_t number = 0; number < calls; ++number) {
        rig.log.Clear();
        rig.log.FailCall(number, Fault::StandardException);
        try {
            rig.Create();
        } catch (const std::runtime_error&) {
            EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
        }
        EXPECT_TRUE(rig.log.Failed());
        rig.Terminate();
    }
    rig.Start();
    ExpectTheNextEditWorks();
}

}  // namespace
