#include "FaultSteps.h"

#include "RecordingPlugin.h"
#include "SampleMaterial.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QDialog>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>

#include <utility>

namespace CorvexTest {
namespace {

using CorvexMaterial::Material;
using CorvexMaterial::Status;

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

/// Whatever dialog the press opens is accepted as it came.
Step PressedAndAccepted(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        const DialogAnswer answer(
            [](QDialog& dialog) { Click(*dialog.findChild<QAbstractButton*>("cmdOK")); });
        rig.Press(name);
    });
}

Step Slid(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        auto& slider = rig.Find<QSlider>(name);
        slider.setValue(slider.value() == 7 ? 8 : 7);
    });
}

/// The first or the last entry, whichever is not shown.
Step Chosen(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        auto& list = rig.List(name);
        Choose(list, list.itemText(list.currentIndex() == 0 ? list.count() - 1 : 0));
    });
}

Step Coloured(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        rig.platform.choosers.colours = {0x010203};
        rig.Press(name);
    });
}

Step FileSelected(const char* name)
{
    return UserDoes(name, [name](ControlRig& rig) {
        rig.Control().put_TextureFileName("");
        rig.platform.choosers.files = {"/textures/a.tif"};
        rig.Press(name);
    });
}

RecordingEditport& BrowserOf(ControlRig& rig, const std::string& stem)
{
    return dynamic_cast<RecordingEditport&>(rig.Find<QWidget>(("dfe" + stem).c_str()));
}

void Unfold(ControlRig& rig)
{
    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
}

void AddLibraryActions(std::vector<Step>& steps)
{
    for (const std::string stem : {"MaterialLibrary", "TextureLibrary"}) {
        const auto add = [&](const std::string& name, const std::function<void(ControlRig&)>& act) {
            steps.push_back(UserDoes(name, [act](ControlRig& rig) {
                Unfold(rig);
                act(rig);
            }));
        };
        for (const char* button : {"Add", "Delete"}) {
            const std::string name = "cmd" + stem + button;
            add(name, [name, stem](ControlRig& rig) {
                rig.host.materialLibrary.items.resize(2);
                rig.host.textureLibrary.items = {"/t/agate.png", "/t/onyx.png"};
                BrowserOf(rig, stem).selected = 0;
                rig.Press(name.c_str());
            });
        }
        add("cmd" + stem + "Functions", [stem](ControlRig& rig) {
            const std::string path =
                "/libraries/New." + std::string(stem == "MaterialLibrary" ? "cvm" : "cvt");
            rig.platform.libraryFiles.paths.erase(path);
            rig.platform.choosers.files = {path};
            rig.Press(("cmd" + stem + "Functions").c_str());
        });
        add("cbo" + stem, [stem](ControlRig& rig) {
            auto& list = rig.List(("cbo" + stem).c_str());
            Choose(list, list.itemText(0));
        });
        add("dfe" + stem, [stem](ControlRig& rig) {
            rig.host.materialLibrary.items.resize(2);
            rig.host.textureLibrary.items = {"/t/agate.png"};
            BrowserOf(rig, stem).listener->ItemSelected(0);
            BrowserOf(rig, stem).listener->Scrolled({0, 100, 10, 10});
            rig.Find<QScrollBar>(("vsb" + stem).c_str()).setValue(7);
        });
    }
}

void AddTextureActions(std::vector<Step>& steps)
{
    for (const char* name : {"cmdSelectTexture", "imgTexture_1"}) {
        steps.push_back(FileSelected(name));
    }
    steps.push_back(UserDoes("cmdTexturePopup", [](ControlRig& rig) {
        rig.host.textureLibrary.files = {"/t/agate.png"};
        const DialogAnswer answer([](QDialog& dialog) {
            dynamic_cast<RecordingEditport&>(*dialog.findChild<QWidget*>("dfeTextureDialog"))
                .listener->ItemOpened(0);
            if (dialog.isVisible()) {
                dialog.reject();
            }
        });
        rig.Press("cmdTexturePopup");
    }));
    for (const char* name : {"cmdTexture", "cmdFlatWrapOptions"}) {
        steps.push_back(PressedAndAccepted(name));
    }
    for (const char* name : {"optWrapType_2", "cmdDeleteTexture"}) {
        steps.push_back(Pressed(name));
    }
    steps.push_back(Chosen("cboTextureAlphaChannelUse"));
    steps.push_back(UserDoes("tabChannels", [](ControlRig& rig) {
        rig.host.graphics.capable = false;
        auto& tabs = rig.Find<QTabBar>("tabChannels");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
        }
    }));
}

void AddPluginActions(std::vector<Step>& steps)
{
    steps.push_back(UserDoes("cboPlugin", [](ControlRig& rig) {
        Choose(rig.List("cboPlugin"), "None");
        Choose(rig.List("cboPlugin"), "Marble");
    }));
    for (const char* name : {"cmdRemember", "cmdReset", "cmdResetUser", "chkParameter_2"}) {
        steps.push_back(Pressed(name));
    }
    steps.push_back(Slid("sldParameter_0"));
    steps.push_back(UserDoes("txtParameter_1", [](ControlRig& rig) {
        auto& box = rig.Find<QAbstractSpinBox>("txtParameter_1");
        box.stepBy(box.text().toDouble() < 5.0 ? 1 : -1);
    }));
    steps.push_back(Chosen("cboParameter_3"));
    steps.push_back(Coloured("picParameter_4"));
    steps.push_back(Typed("txtCustomMaterialFieldValue_0"));
}

void AddRaytraceActions(std::vector<Step>& steps)
{
    steps.push_back(Pressed("cmdPreview"));
    // Without a raytracer it offers the way to one.
    steps.push_back(UserDoes("cmdPreview", [](ControlRig& rig) {
        std::string& program = rig.host.applicationState.povRayProgram;
        const std::string installed = std::exchange(program, {});
        rig.platform.prompts.answers = {true};
        rig.Press("cmdPreview");
        program = installed;
    }));
    steps.push_back(UserDoes("cmdMaterialExtended", [](ControlRig& rig) {
        const DialogAnswer answer([](QDialog& dialog) {
            auto& patterns = *dialog.findChild<QComboBox*>("cboColorPattern");
            Choose(patterns, patterns.itemText(patterns.currentIndex() == 1 ? 2 : 1));
            Click(*dialog.findChild<QAbstractButton*>("cmdOK"));
        });
        rig.Press("cmdMaterialExtended");
    }));
}

}  // namespace

void OfferPluginAndField(ControlRig& rig)
{
    using enum CorvexDB::ParameterKind;
    std::vector<CorvexDB::PluginParameter> parameters;
    for (const auto kind : {Slider, Number, Tick, List, PackedColour}) {
        parameters.push_back({"Veins", kind, 0.0F, 10.0F, 0, {"Few", "Many"}, 0.0F, 1.0F, 0, 1.0F});
    }
    rig.host.plugins.records = {{nullptr, "None"},
                                {std::make_shared<RecordingPlugin>(rig.log, parameters), "Marble"}};
    rig.host.customFields.names = {"Supplier"};
    rig.platform.settings.PutTip("POVRayConfiguration", "0");
    rig.platform.settings.PutTip("Simulation Texture", "0");
    rig.platform.settings.PutTip("MaterialTIF", "0");
    const auto create = [&rig](const std::string& path) {
        rig.platform.libraryFiles.paths.insert(path);
    };
    rig.host.materialLibrary.creating = create;
    rig.host.textureLibrary.creating = create;
    rig.Control().ClearPluginList();
    rig.Control().AddToPluginList("Marble");
    Choose(rig.List("cboPlugin"), "Marble");
}

std::vector<Step> Members()
{
    using M = Material;
    const std::pair<const char*, std::function<Status(M&)>> rows[] = {
        {"InitializeMaterialPreviewScene", &M::InitializeMaterialPreviewScene},
        {"LoadSavedStatus", &M::LoadSavedStatus},
        {"SaveStatus", &M::SaveStatus},
        {"RenderMaterial",
         [](M& m) {
             m.put_bTexturePanel(true);
             m.put_bMaterialLibraryPanel(true);
             return m.RenderMaterial();
         }},
        {"DefaultMaterial", &M::DefaultMaterial},
        {"ResetMiscellaneous", &M::ResetMiscellaneous},
        {"ResetDevices", &M::ResetDevices},
        {"pReleaseMaterialLibrarySelection", &M::pReleaseMaterialLibrarySelection},
        {"pReleaseTextureLibrarySelection", &M::pReleaseTextureLibrarySelection},
        {"pAlphaIsTransparentUpdated", &M::pAlphaIsTransparentUpdated},
        {"ClearPluginList", &M::ClearPluginList},
        {"AddToPluginList", [](M& m) { return m.AddToPluginList("Wood"); }},
        {"SetBackColor", [](M& m) { return m.SetBackColor(1, 2, 3); }},
        {"CopyFieldToFormMaterial", [](M& m) { return m.CopyFieldToFormMaterial(KeptMaterial()); }},
        {"SetTexturesAvoidStateChange",
         [](M& m) { return m.SetTexturesAvoidStateChange("/p", "/a", "/o", "/b", "/s", "/e"); }},
        {"SetTextureCropping", [](M& m) { return m.SetTextureCropping(0.1F, 0.2F, 0.3F, 0.4F); }},
        {"sCreateRayTraceCombinedAttributes",
         [text = std::string()](M& m) mutable {
             return m.sCreateRayTraceCombinedAttributes(text);
         }},
        {"colTextures", [textures = static_cast<CorvexDB::TextureCollection*>(nullptr)](
                            M& m) mutable { return m.get_colTextures(textures); }},
        {"DisplayPluginParameters",
         [](M& m) {
             return m.DisplayPluginParameters({1.0F, 2.0F, 1.0F, 1.0F, 1.0F});
         }},
        {"GetPluginParameterValues",
         [values = std::vector<float>()](M& m) mutable {
             return m.GetPluginParameterValues(values);
         }},
        {"LoadMaterialLibrary", [](M& m) { return m.LoadMaterialLibrary("Gems.cvm"); }},
        {"LoadTextureLibrary", [](M& m) { return m.LoadTextureLibrary("Gems.cvt"); }},
        {"SetMaxStatus", [](M& m) { return m.SetMaxStatus(20000); }}};
    std::vector<Step> steps;
    for (const auto& [name, call] : rows) {
        steps.push_back({name, [call = call](ControlRig& rig) { return call(rig.Control()); }});
    }
    steps.push_back(
        {"ApplyShapeMaterial", [](ControlRig& rig) {
             // Forgets what was gathered.
             rig.Control().SetTexturesAvoidStateChange("", "", "", "", "", "");
             RecordingShape shape(rig.log, "selected", rig.host.sceneGraph.missingMeshes);
             return rig.Control().ApplyShapeMaterial(rig.host.Viewport()->TheScene(), shape, false,
                                                     nullptr, nullptr, {}, {}, false, {}, {});
         }});
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
    steps.push_back({"lPreviewPrimitive", [](ControlRig& rig) {
                         const auto shown = rig.Read(&I::get_lPreviewPrimitive);
                         return rig.Control().put_lPreviewPrimitive(shown == 3 ? 2 : 3);
                     }});
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
        steps.push_back(Coloured(name));
    }
    for (const char* name : {"sldEmissive", "sldSpecular", "sldAmbient", "sldTransparency"}) {
        steps.push_back(Slid(name));
    }
    steps.push_back(UserDoes("cboColor", [](ControlRig& rig) {
        rig.platform.choosers.colours = {16775408};  // one that the list names
        Choose(rig.List("cboColor"), "Custom");
    }));
    steps.push_back(UserDoes("cboAlphaTest",
                             [](ControlRig& rig) { Choose(rig.List("cboAlphaTest"), "Less"); }));
    for (const char* name : {"txtEmissive", "txtSpecular", "txtAmbient", "txtTransparency",
                             "txtAlphaTestReference", "txtTexture2Translucency"}) {
        steps.push_back(Typed(name));
    }
    steps.push_back(UserDoes("cmdPreviewPrimitive", [](ControlRig& rig) {
        const bool isCone = rig.Read(&CorvexMaterial::IMaterial::get_lPreviewPrimitive) == 4;
        const DialogAnswer answer([isCone](QDialog& dialog) {
            Click(
                *dialog.findChild<QAbstractButton*>(isCone ? "cmdPrimitive_1" : "cmdPrimitive_4"));
        });
        rig.Press("cmdPreviewPrimitive");
    }));
    steps.push_back(UserDoes("dfvMaterialViewport", [](ControlRig& rig) {
        rig.host.Viewport()->listener->ViewChanged();
        rig.host.Viewport()->listener->PositionChanged("here");
    }));
    for (const char* kind : {"Material", "Texture"}) {
        for (const char* change : {"More", "Less"}) {
            const std::string name = std::string("cmd") + kind + "Library" + change;
            steps.push_back(UserDoes(name, [name](ControlRig& rig) {
                Unfold(rig);
                rig.Press(name.c_str());
            }));
        }
    }
    AddLibraryActions(steps);
    AddTextureActions(steps);
    AddPluginActions(steps);
    AddRaytraceActions(steps);
    return steps;
}

}  // namespace CorvexTest
