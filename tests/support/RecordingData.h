#pragma once

#include "CallLog.h"
#include <CorvexMaterial/CorvexDB.h>

namespace CorvexTest {

class RecordingApplicationState : public Recording<CorvexDB::ApplicationState> {
public:
    using Recording::Recording;

    std::string SettingsApplicationName() override
    {
        return m_log.Answer("ApplicationState.SettingsApplicationName", applicationName);
    }
    std::string LibraryFolder() override
    {
        return m_log.Answer("ApplicationState.LibraryFolder", libraryFolder);
    }
    bool RaytracerAvailable() override
    {
        return m_log.Answer("ApplicationState.RaytracerAvailable", raytracerAvailable);
    }
    CorvexDB::Raytracer SelectedRaytracer() override
    {
        return m_log.Answer("ApplicationState.SelectedRaytracer", raytracer);
    }
    std::string PovRayProgram() override
    {
        return m_log.Answer("ApplicationState.PovRayProgram", povRayProgram);
    }
    std::int32_t AntialiasChoice() override
    {
        return m_log.Answer("ApplicationState.AntialiasChoice", antialias);
    }
    std::string ScenePath() override
    {
        return m_log.Answer("ApplicationState.ScenePath", scenePath);
    }
    std::vector<std::string> SearchFolders() override
    {
        return m_log.Answer("ApplicationState.SearchFolders", searchFolders);
    }
    void OpenWebSite(CorvexDB::WebSite site) override
    {
        m_log.Enter("ApplicationState.OpenWebSite", std::to_string(static_cast<int>(site)));
    }

    std::string applicationName = "Corvex";
    std::string libraryFolder = "/libraries";
    bool raytracerAvailable = true;
    CorvexDB::Raytracer raytracer = CorvexDB::Raytracer::PovRay;
    std::string povRayProgram = "/programs/povray";
    std::string scenePath = "/scenes/";
    std::vector<std::string> searchFolders{"/media/"};
    std::int32_t antialias = 0;
};

class RecordingDiagnostics : public Recording<CorvexDB::Diagnostics> {
public:
    using Recording::Recording;

    void RecordEvent(std::string_view text) override
    {
        m_log.Enter("Diagnostics.RecordEvent", std::string(text));
    }
    void DebugTrace(std::string_view text) override
    {
        m_log.Enter("Diagnostics.DebugTrace", std::string(text));
    }
};

class RecordingGraphics : public Recording<CorvexDB::GraphicsCapabilities> {
public:
    using Recording::Recording;

    bool CanBumpmap() override { return Can("GraphicsCapabilities.CanBumpmap"); }
    bool CanSpecularMap() override { return Can("GraphicsCapabilities.CanSpecularMap"); }
    bool CanEnvironmentMap() override { return Can("GraphicsCapabilities.CanEnvironmentMap"); }

    bool capable = true;

private:
    bool Can(const char* name) { return m_log.Answer(name, capable); }
};

/// What the libraries of both kinds have in common; their calls are named after the kind.
template <typename Library, typename Item>
class RecordingLibraryOf : public Recording<Library> {
public:
    RecordingLibraryOf(CallLog& log, const char* kind) : Recording<Library>(log), m_kind(kind) {}

    CorvexDB::LibraryContent Open(const std::string& path) override
    {
        Enter("Open", path);
        if (opening) {
            opening();
        }
        return {static_cast<std::int32_t>(items.size())};
    }
    void CreateLibrary(const std::string& path) override
    {
        Enter("CreateLibrary", path);
        if (creating) {
            creating(path);
        }
    }
    void CloseLibrary() override { Enter("CloseLibrary"); }

    std::vector<Item> items;
    std::function<void()> opening;                     ///< called in the middle of Open
    std::function<void(const std::string&)> creating;  ///< makes the file

protected:
    void Enter(const std::string& operation, const std::string& detail = {})
    {
        this->m_log.Enter(m_kind + "." + operation, detail);
    }
    const Item& EnterAt(const std::string& operation, std::int32_t index)
    {
        Enter(operation, std::to_string(index));
        return items.at(static_cast<std::size_t>(index));
    }
    void EnterAndErase(const std::string& operation, std::int32_t index)
    {
        items.erase(items.begin() + (&EnterAt(operation, index) - items.data()));
    }

private:
    std::string m_kind;
};

class RecordingMaterialLibrary
    : public RecordingLibraryOf<CorvexDB::MaterialLibrary, CorvexDB::udtMaterial> {
public:
    explicit RecordingMaterialLibrary(CallLog& log) : RecordingLibraryOf(log, "MaterialLibrary") {}

    CorvexDB::udtMaterial MaterialAt(std::int32_t index) override
    {
        return EnterAt("MaterialAt", index);
    }
    void AddMaterialToLibrary(const CorvexDB::udtMaterial& material) override
    {
        Enter("AddMaterialToLibrary");
        items.push_back(material);
    }
    void DeleteMaterialFromLibrary(std::int32_t index) override
    {
        EnterAndErase("DeleteMaterialFromLibrary", index);
    }

    std::vector<CorvexDB::udtMaterial>& materials = items;
};

class RecordingTextureLibrary : public RecordingLibraryOf<CorvexDB::TextureLibrary, std::string>,
                                private CorvexDB::TextureCollection {
public:
    explicit RecordingTextureLibrary(CallLog& log) : RecordingLibraryOf(log, "TextureLibrary") {}

    CorvexDB::TextureCollection& Textures() override
    {
        Enter("Textures");
        return *this;
    }
    std::string SelectedLibraryTexture(std::int32_t index) override
    {
        return EnterAt("SelectedLibraryTexture", index);
    }
    void AddTextureToLibrary(const std::string& file) override
    {
        Enter("AddTextureToLibrary", file);
        items.push_back(file);
    }
    void DeleteTextureFromLibrary(std::int32_t index) override
    {
        EnterAndErase("DeleteTextureFromLibrary", index);
    }

    std::vector<std::string>& files = items;

private:
    std::int32_t Count() override
    {
        return m_log.Answer("TextureCollection.Count", static_cast<std::int32_t>(items.size()));
    }
    std::string FileAt(std::int32_t index) override
    {
        m_log.Enter("TextureCollection.FileAt", std::to_string(index));
        return items.at(static_cast<std::size_t>(index));
    }
};

class RecordingPlugins : public Recording<CorvexDB::PluginTable> {
public:
    using Recording::Recording;

    std::vector<CorvexDB::PluginRecord> Records() override
    {
        return m_log.Answer("PluginTable.Records", records);
    }

    std::vector<CorvexDB::PluginRecord> records;
};

class RecordingCustomFields : public Recording<CorvexDB::CustomFields> {
public:
    using Recording::Recording;

    std::vector<std::string> GetCustomMaterialFieldNames() override
    {
        return m_log.Answer("CustomFields.GetCustomMaterialFieldNames", names);
    }

    std::vector<std::string> names;
};

class RecordingRaytrace : public Recording<CorvexDB::RaytraceServices> {
public:
    using Recording::Recording;

    std::string
    CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes) override
    {
        return m_log.Answer("RaytraceServices.CombinedAttributes",
                            "combined, brilliance " + std::to_string(attributes.Brilliance));
    }
    std::int32_t StartAndWait(const CorvexDB::CommandLine& commandLine) override
    {
        return m_log.Answer("RaytraceServices.StartAndWait", 0, commandLine.text);
    }
    void RaytraceAbandoned() override { m_log.Enter("RaytraceServices.RaytraceAbandoned"); }
    void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                    std::int32_t quality) override
    {
        m_log.Enter("RaytraceServices.SaveAsJpeg",
                    bitmapPath + " " + jpegPath + " " + std::to_string(quality));
    }
    std::string KeepSimulation(const std::string& jpegPath) override
    {
        return m_log.Answer("RaytraceServices.KeepSimulation", jpegPath, jpegPath);
    }
};

}  // namespace CorvexTest
