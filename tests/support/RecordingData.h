#pragma once

#include "host/CorvexDB.h"
#include "tests/support/CallLog.h"

#include <functional>
#include <string>
#include <vector>

namespace CorvexTest {

class RecordingApplicationState : public CorvexDB::ApplicationState {
public:
    explicit RecordingApplicationState(CallLog& log) : m_log(log) {}

    std::string SettingsApplicationName() override;
    std::string LibraryFolder() override;
    bool RaytracerAvailable() override;
    CorvexDB::Raytracer SelectedRaytracer() override;
    std::string PovRayProgram() override;
    std::int32_t AntialiasChoice() override;
    std::string ScenePath() override;
    std::vector<std::string> SearchFolders() override;
    void OpenWebSite(CorvexDB::WebSite site) override;

    std::string applicationName = "Corvex";
    std::string libraryFolder = "/libraries";
    bool raytracerAvailable = true;
    CorvexDB::Raytracer raytracer = CorvexDB::Raytracer::PovRay;
    std::string povRayProgram = "/programs/povray";
    std::int32_t antialias = 0;
    std::string scenePath = "/scenes/";
    std::vector<std::string> searchFolders{"/media/"};

private:
    CallLog& m_log;
};

class RecordingDiagnostics : public CorvexDB::Diagnostics {
public:
    explicit RecordingDiagnostics(CallLog& log) : m_log(log) {}

    void RecordEvent(std::string_view text) override;
    void DebugTrace(std::string_view text) override;

private:
    CallLog& m_log;
};

class RecordingGraphics : public CorvexDB::GraphicsCapabilities {
public:
    explicit RecordingGraphics(CallLog& log) : m_log(log) {}

    bool CanBumpmap() override;
    bool CanSpecularMap() override;
    bool CanEnvironmentMap() override;

    bool capable = true;

private:
    CallLog& m_log;
};

class RecordingMaterialLibrary : public CorvexDB::MaterialLibrary {
public:
    explicit RecordingMaterialLibrary(CallLog& log) : m_log(log) {}

    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::udtMaterial MaterialAt(std::int32_t index) override;
    void AddMaterialToLibrary(const CorvexDB::udtMaterial& material) override;
    void DeleteMaterialFromLibrary(std::int32_t index) override;

    void CreateLibrary(const std::string& path) override;
    void CloseLibrary() override;

    std::vector<CorvexDB::udtMaterial> materials;
    std::function<void()> opening;                     ///< called in the middle of Open
    std::function<void(const std::string&)> creating;  ///< makes the file

private:
    CallLog& m_log;
};

class RecordingTextureLibrary : public CorvexDB::TextureLibrary,
                                private CorvexDB::TextureCollection {
public:
    explicit RecordingTextureLibrary(CallLog& log) : m_log(log) {}

    CorvexDB::LibraryContent Open(const std::string& path) override;
    CorvexDB::TextureCollection& Textures() override;
    std::string SelectedLibraryTexture(std::int32_t index) override;
    void AddTextureToLibrary(const std::string& file) override;
    void DeleteTextureFromLibrary(std::int32_t index) override;

    void CreateLibrary(const std::string& path) override;
    void CloseLibrary() override;

    std::vector<std::string> files;
    std::function<void()> opening;
    std::function<void(const std::string&)> creating;

private:
    std::int32_t Count() override;
    std::string FileAt(std::int32_t index) override;

    CallLog& m_log;
};

class RecordingPlugins : public CorvexDB::PluginTable {
public:
    explicit RecordingPlugins(CallLog& log) : m_log(log) {}

    std::vector<CorvexDB::PluginRecord> Records() override;

    std::vector<CorvexDB::PluginRecord> records;

private:
    CallLog& m_log;
};

class RecordingCustomFields : public CorvexDB::CustomFields {
public:
    explicit RecordingCustomFields(CallLog& log) : m_log(log) {}

    std::vector<std::string> GetCustomMaterialFieldNames() override;

    std::vector<std::string> names;

private:
    CallLog& m_log;
};

class RecordingRaytrace : public CorvexDB::RaytraceServices {
public:
    explicit RecordingRaytrace(CallLog& log) : m_log(log) {}

    std::string
    CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes) override;
    std::int32_t StartAndWait(const CorvexDB::CommandLine& commandLine) override;
    void RaytraceAbandoned() override;
    void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                    std::int32_t quality) override;

private:
    CallLog& m_log;
};

}  // namespace CorvexTest
