#include "FaultSteps.h"

#include "SampleMaterial.h"

#include <QAbstractSpinBox>

namespace CorvexTest {
namespace {

using CorvexMaterial::Material;
using CorvexMaterial::Status;

template <typename Value>
Step Put(std::string name, Status (CorvexMaterial::IMaterial::*put)(const Value&), Value value)
{
    return {std::move(name), [=](ControlRig& rig) { return (rig.Control().*put)(value); }};
}

/// The first or the last entry, whichever is not shown.
void ChooseOther(QComboBox& list)
{
    Choose(list, list.itemText(list.currentIndex() == 0 ? list.count() - 1 : 0));
}

/// Whatever dialog comes up is accepted, with something in it chosen where that can be.
void Accept(ControlRig& rig, QDialog& dialog)
{
    if (auto* browser = dialog.findChild<QWidget*>("dfeTextureDialog")) {
        dynamic_cast<RecordingEditport&>(*browser).listener->ItemOpened(0);
    } else if (auto* patterns = dialog.findChild<QComboBox*>("cboColorPattern")) {
        ChooseOther(*patterns);
    }
    const bool isCone = rig.Read(&CorvexMaterial::IMaterial::get_lPreviewPrimitive) == 4;
    for (const char* name : {"cmdOK", isCone ? "cmdPrimitive_1" : "cmdPrimitive_4"}) {
        auto* button = dialog.findChild<QAbstractButton*>(name);
        if (button != nullptr && button->isVisible()) {
            button->click();
        }
    }
    if (dialog.isVisible()) {
        dialog.reject();
    }
}

/// What a user meets behind the controls: entries, and new answers of the desktop.
void Supply(ControlRig& rig)
{
    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
    rig.host.graphics.capable = false;
    rig.host.materialLibrary.items.resize(2);
    rig.host.textureLibrary.items = {"/t/agate.png", "/t/onyx.png"};
    rig.host.textureLibrary.files = {"/t/agate.png"};
    for (const char* extension : {".cvm", ".cvt"}) {
        rig.platform.libraryFiles.paths.erase(std::string("/textures/a.tif") + extension);
    }
    rig.platform.choosers.files = {"/textures/a.tif"};
    rig.platform.choosers.colours = {0x010203};
    for (auto* browser : rig.Control().findChildren<QWidget*>(QRegularExpression("^dfe"))) {
        dynamic_cast<RecordingEditport&>(*browser).selected = 0;
    }
}

/// As a user operates a control of its kind.
void Operate(ControlRig& rig, QWidget& widget)
{
    if (auto* slider = qobject_cast<QAbstractSlider*>(&widget)) {
        slider->setValue(slider->value() == 7 ? 8 : 7);
    } else if (auto* list = qobject_cast<QComboBox*>(&widget)) {
        ChooseOther(*list);
    } else if (auto* field = qobject_cast<QLineEdit*>(&widget)) {
        Type(*field, field->text() == "7" ? "8" : "7");
    } else if (auto* box = qobject_cast<QAbstractSpinBox*>(&widget)) {
        box->stepBy(box->text().toDouble() < 5.0 ? 1 : -1);
    } else if (auto* tabs = qobject_cast<QTabBar*>(&widget)) {
        for (int tab = 0; tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
        }
    } else if (auto* browser = dynamic_cast<RecordingEditport*>(&widget)) {
        browser->listener->ItemSelected(0);
    } else if (&widget == rig.host.Viewport()) {
        rig.host.Viewport()->listener->ViewChanged();
        rig.host.Viewport()->listener->PositionChanged("here");
    } else {
        Click(widget);
    }
}

}  // namespace

void OfferPluginAndField(ControlRig& rig)
{
    rig.host.customFields.names = {"Supplier"};
    const auto create = [&rig](const std::string& path) {
        rig.platform.libraryFiles.paths.insert(path);
    };
    rig.host.materialLibrary.creating = create;
    rig.host.textureLibrary.creating = create;
    rig.Control().DefaultMaterial();
    rig.ChoosePlugin("Marble", [] {
        using enum CorvexDB::ParameterKind;
        Parameters parameters;
        for (const auto kind : {Slider, Number, Tick, List, PackedColour}) {
            parameters.push_back({"Veins", kind, 0, 10, 0, {"Few", "Many"}, 0, 1, 0, 1});
        }
        return parameters;
    });
    Choose(rig.List("cboAlphaTest"), "Less");
    for (auto* browser : rig.Control().findChildren<QWidget*>(QRegularExpression("^dfe"))) {
        dynamic_cast<RecordingEditport&>(*browser).listener->Scrolled({0, 100, 10, 10});
    }
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

std::vector<Step> UserActions(ControlRig& rig)
{
    static const QRegularExpression kControls("^(cmd|chk|opt|cbo|txt|sld|img|tab|dfe|dfv|vsb)[A-Z]|"
                                              "^pic(VBColor|Parameter)");
    Supply(rig);
    std::vector<Step> steps;
    for (const QWidget* widget : rig.Control().findChildren<QWidget*>(kControls)) {
        const std::string name = widget->objectName().toStdString();
        if (rig.Shown(name.c_str()).isVisible()) {
            steps.push_back({name, [name](ControlRig& operated) {
                                 Supply(operated);
                                 const DialogAnswer answer(
                                     [&](QDialog& dialog) { Accept(operated, dialog); });
                                 Operate(operated, operated.Shown(name.c_str()));
                                 return std::optional<Status>();
                             }});
        }
    }
    // Without a raytracer it offers the way to one.
    steps.push_back({"no raytracer", [](ControlRig& operated) {
                         std::string& program = operated.host.applicationState.povRayProgram;
                         const std::string installed = std::exchange(program, {});
                         operated.platform.prompts.answers = {true};
                         operated.Press("cmdPreview");
                         program = installed;
                         return std::optional<Status>();
                     }});
    return steps;
}

}  // namespace CorvexTest
