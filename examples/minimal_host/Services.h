#pragma once

#include "Browser.h"
#include "Swatch.h"

#include <CorvexMaterial/Host.h>

/// No raytracer, no search folders, one fixed settings name.
class HostState final : public CorvexDB::ApplicationState {
public:
    std::string SettingsApplicationName() override { return "Minimal Host"; }
    std::string LibraryFolder() override { return {}; }
    bool RaytracerAvailable() override { return false; }
    CorvexDB::Raytracer SelectedRaytracer() override { return CorvexDB::Raytracer::PovRay; }
    std::string PovRayProgram() override { return {}; }
    std::int32_t AntialiasChoice() override { return 0; }
    std::string ScenePath() override { return {}; }
    std::vector<std::string> SearchFolders() override { return {}; }
    void OpenWebSite(CorvexDB::WebSite site) override;
};

/// Event log and trace on the terminal.
class TerminalDiagnostics final : public CorvexDB::Diagnostics {
public:
    void RecordEvent(std::string_view text) override;
    void DebugTrace(std::string_view text) override;
};

/// The swatch draws no texture of any kind.
class NoGraphics final : public CorvexDB::GraphicsCapabilities {
public:
    bool CanBumpmap() override { return false; }
    bool CanSpecularMap() override { return false; }
    bool CanEnvironmentMap() override { return false; }
};

/// This host keeps no libraries: it names no folder of theirs, and a file that is chosen all the
/// same is refused.
class NoMaterialLibrary final : public CorvexDB::MaterialLibrary {
public:
    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::udtMaterial MaterialAt(std::int32_t) override { return {}; }
    void AddMaterialToLibrary(const CorvexDB::udtMaterial&) override {}
    void DeleteMaterialFromLibrary(std::int32_t) override {}
};

class NoTextureLibrary final : public CorvexDB::TextureLibrary,
                               private CorvexDB::TextureCollection {
public:
    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::TextureCollection& Textures() override { return *this; }
    std::string SelectedLibraryTexture(std::int32_t) override { return {}; }
    void AddTextureToLibrary(const std::string&) override {}
    void DeleteTextureFromLibrary(std::int32_t) override {}

private:
    std::int32_t Count() override { return 0; }
    std::string FileAt(std::int32_t) override { return {}; }
};

class NoPlugins final : public CorvexDB::PluginTable {
public:
    std::vector<CorvexDB::PluginRecord> Records() override { return {}; }
};

class NoCustomFields final : public CorvexDB::CustomFields {
public:
    std::vector<std::string> GetCustomMaterialFieldNames() override { return {}; }
};

/// This host never raytraces: it offers no raytracer, so these are not called but for the JPEG.
class NoRaytracer final : public CorvexDB::RaytraceServices, public CorvexSG::SceneExporter {
public:
    std::string CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes&) override;
    std::int32_t StartAndWait(const CorvexDB::CommandLine& commandLine) override;
    void RaytraceAbandoned() override {}
    void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                    std::int32_t quality) override;
    std::string ExportRaytraceScene(const CorvexSG::RaytraceExport& request) override;
    std::vector<std::string> TexturesInUse(CorvexSG::Scene&) override { return {}; }
};

/// Typed numbers are brought into their range; what is no number becomes the default.
class RangeValidation final : public CorvexCommon::NumericValidation {
public:
    std::string Accept(const std::string& text, const CorvexCommon::NumericRange& range) override;
};

/// One of each.
class MinimalHost {
public:
    CorvexMaterial::Host& Interfaces() { return m_host; }
    CorvexSG::SceneGraph& Scenes() { return m_scenes; }

private:
    HostState m_state;
    TerminalDiagnostics m_diagnostics;
    NoGraphics m_graphics;
    NoMaterialLibrary m_materials;
    NoTextureLibrary m_textures;
    NoPlugins m_plugins;
    NoCustomFields m_fields;
    NoRaytracer m_raytracer;
    SwatchSceneGraph m_scenes;
    SwatchViewportFactory m_viewports;
    BrowserFactory m_browsers;
    RangeValidation m_numbers;
    CorvexMaterial::Host m_host{m_state,     m_diagnostics, m_graphics, m_materials,
                                m_textures,  m_plugins,     m_fields,   m_raytracer,
                                m_raytracer, m_viewports,   m_browsers, m_numbers};
};
