#pragma once

#include "ControlRig.h"

namespace CorvexTest {

/// What differs between the two libraries, as a user sees it.
struct Kind {
    const char* noun;
    const char* extension;
    CorvexMaterial::Status (CorvexMaterial::IMaterial::*load)(const std::string&);
    CorvexMaterial::Status (CorvexMaterial::IMaterial::*release)();

    [[nodiscard]] std::string File(const std::string& name) const { return name + "." + extension; }
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return "/libraries/" + File(name);
    }
    /// Of controls, settings and calls: "MaterialLibrary" between two others.
    [[nodiscard]] std::string Named(const char* before, const char* after = "") const
    {
        return std::string(before) + noun + "Library" + after;
    }
};

inline constexpr Kind kMaterials{"Material", "cvm", &CorvexMaterial::IMaterial::LoadMaterialLibrary,
                                 &CorvexMaterial::IMaterial::pReleaseMaterialLibrarySelection};
inline constexpr Kind kTextures{"Texture", "cvt", &CorvexMaterial::IMaterial::LoadTextureLibrary,
                                &CorvexMaterial::IMaterial::pReleaseTextureLibrarySelection};

class LibraryFixture {
protected:
    explicit LibraryFixture(const Kind& shown) : kind(shown)
    {
        rig.host.materialLibrary.items.resize(3);
        rig.host.materialLibrary.items[1].Color = 255;
        rig.host.textureLibrary.items = {"/t/agate.png", "/t/onyx.png", "/t/jade.png"};
        rig.platform.libraryFiles.paths.insert(kind.Path("Wood"));
        Start();
    }

    void Start()
    {
        rig.Start();
        rig.Control().put_bTexturePanel(true);
        rig.Control().put_bMaterialLibraryPanel(true);
        Forget();
    }
    void Forget()
    {
        rig.log.Clear();
        rig.statusTexts.clear();
        rig.warnings.clear();
        rig.platform.prompts.shown.clear();
    }
    CorvexMaterial::Status Load(const std::string& name)
    {
        return (rig.Control().*kind.load)(name);
    }
    QWidget& Button(const char* suffix)
    {
        return rig.Find<QWidget>(kind.Named("cmd", suffix).c_str());
    }
    QComboBox& List() { return rig.Find<QComboBox>(kind.Named("cbo").c_str()); }
    QScrollBar& Bar() { return rig.Find<QScrollBar>(kind.Named("vsb").c_str()); }
    RecordingEditport& Browser()
    {
        return dynamic_cast<RecordingEditport&>(rig.Find<QWidget>(kind.Named("dfe").c_str()));
    }
    std::string SavedName()
    {
        rig.Terminate();
        return rig.platform.settings.Get(kind.Named("")).value_or("none");
    }
    std::vector<std::string> Opened() { return rig.log.DetailsOf(kind.Named("", ".Open")); }
    bool CanChange()
    {
        EXPECT_EQ(Button("Add").isEnabled(), Button("Delete").isEnabled());
        return Button("Add").isEnabled();
    }
    using Texts = std::vector<QString>;
    QString Loading() { return QStringLiteral("Loading %1 Library").arg(kind.noun); }
    QString NotOpened(const char* name)
    {
        return QString::fromStdString(kind.File(name)) + QStringLiteral(" was not opened.");
    }
    QString Loaded() { return QStringLiteral("%1 Library Loaded").arg(kind.noun); }

    const Kind& kind;
    ControlRig rig;
};

}  // namespace CorvexTest
