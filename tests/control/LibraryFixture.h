#pragma once

#include "tests/support/ControlRig.h"

#include <QScrollBar>

#include <gtest/gtest.h>

namespace CorvexTest {

/// What differs between the two libraries, as a user sees it.
struct Kind {
    const char* stem;
    const char* extension;
    const char* noun;
    const char* upgrade;
    CorvexMaterial::Status (CorvexMaterial::IMaterial::*load)(const std::string&);
    CorvexMaterial::Status (CorvexMaterial::IMaterial::*release)();
    const char* expanded;

    [[nodiscard]] std::string File(const std::string& name) const { return name + "." + extension; }
    [[nodiscard]] std::string Path(const std::string& name) const
    {
        return "/libraries/" + File(name);
    }
    [[nodiscard]] std::string Control(const char* prefix, const char* suffix = "") const
    {
        return std::string(prefix) + stem + suffix;
    }
    [[nodiscard]] std::string Lower() const
    {
        std::string text = noun;
        text[0] = static_cast<char>(text[0] + ('a' - 'A'));
        return text;
    }
};

inline constexpr Kind kMaterials{"MaterialLibrary",
                                 "cvm",
                                 "Material",
                                 "upgrade",
                                 &CorvexMaterial::IMaterial::LoadMaterialLibrary,
                                 &CorvexMaterial::IMaterial::pReleaseMaterialLibrarySelection,
                                 "Event.MaterialLibraryExpanded"};
inline constexpr Kind kTextures{"TextureLibrary",
                                "cvt",
                                "Texture",
                                "Upgrade",
                                &CorvexMaterial::IMaterial::LoadTextureLibrary,
                                &CorvexMaterial::IMaterial::pReleaseTextureLibrarySelection,
                                "Event.TextureLibraryExpanded"};

class LibraryFixture {
protected:
    explicit LibraryFixture(const Kind& shown) : kind(shown)
    {
        rig.host.materialLibrary.materials.resize(3);
        rig.host.materialLibrary.materials[1].Color = 255;
        rig.host.textureLibrary.files = {"/t/agate.png", "/t/onyx.png", "/t/jade.png"};
        rig.platform.libraryFiles.paths.insert(kind.Path("Wood"));
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
        return rig.Find<QWidget>(kind.Control("cmd", suffix).c_str());
    }
    QComboBox& List() { return rig.Find<QComboBox>(kind.Control("cbo").c_str()); }
    QScrollBar& Bar() { return rig.Find<QScrollBar>(kind.Control("vsb").c_str()); }
    RecordingEditport& Browser()
    {
        return dynamic_cast<RecordingEditport&>(rig.Find<QWidget>(kind.Control("dfe").c_str()));
    }
    std::string SavedName()
    {
        rig.Terminate();
        return rig.platform.settings.Get(kind.stem).value_or("none");
    }
    void OnOpening(const std::function<void()>& act)
    {
        rig.host.materialLibrary.opening = act;
        rig.host.textureLibrary.opening = act;
    }
    std::vector<std::string> Opened()
    {
        return rig.log.DetailsOf(std::string(kind.stem) + ".Open");
    }
    bool CanChange()
    {
        EXPECT_EQ(Button("Add").isEnabled(), Button("Delete").isEnabled());
        return Button("Add").isEnabled();
    }
    void ExpectStatusTexts(const std::vector<QString>& texts) { EXPECT_EQ(rig.statusTexts, texts); }
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
