#include "tests/support/RecordingData.h"

namespace CorvexTest {

std::string RecordingApplicationState::SettingsApplicationName()
{
    m_log.Enter("ApplicationState.SettingsApplicationName");
    return applicationName;
}

std::string RecordingApplicationState::LibraryFolder()
{
    m_log.Enter("ApplicationState.LibraryFolder");
    return libraryFolder;
}

bool RecordingApplicationState::RaytracerAvailable()
{
    m_log.Enter("ApplicationState.RaytracerAvailable");
    return raytracerAvailable;
}

CorvexDB::Raytracer RecordingApplicationState::SelectedRaytracer()
{
    m_log.Enter("ApplicationState.SelectedRaytracer");
    return raytracer;
}

std::string RecordingApplicationState::PovRayProgram()
{
    m_log.Enter("ApplicationState.PovRayProgram");
    return povRayProgram;
}

std::int32_t RecordingApplicationState::AntialiasChoice()
{
    m_log.Enter("ApplicationState.AntialiasChoice");
    return antialias;
}

std::string RecordingApplicationState::ScenePath()
{
    m_log.Enter("ApplicationState.ScenePath");
    return scenePath;
}

std::vector<std::string> RecordingApplicationState::SearchFolders()
{
    m_log.Enter("ApplicationState.SearchFolders");
    return searchFolders;
}

void RecordingApplicationState::OpenWebSite(CorvexDB::WebSite site)
{
    m_log.Enter("ApplicationState.OpenWebSite", std::to_string(static_cast<int>(site)));
}

void RecordingDiagnostics::RecordEvent(std::string_view text)
{
    m_log.Enter("Diagnostics.RecordEvent", std::string(text));
}

void RecordingDiagnostics::DebugTrace(std::string_view text)
{
    m_log.Enter("Diagnostics.DebugTrace", std::string(text));
}

bool RecordingGraphics::CanBumpmap()
{
    m_log.Enter("GraphicsCapabilities.CanBumpmap");
    return capable;
}

bool RecordingGraphics::CanSpecularMap()
{
    m_log.Enter("GraphicsCapabilities.CanSpecularMap");
    return capable;
}

bool RecordingGraphics::CanEnvironmentMap()
{
    m_log.Enter("GraphicsCapabilities.CanEnvironmentMap");
    return capable;
}

void RecordingMaterialLibrary::CreateLibrary(const std::string& path)
{
    m_log.Enter("MaterialLibrary.CreateLibrary", path);
    if (creating) {
        creating(path);
    }
}

void RecordingMaterialLibrary::CloseLibrary()
{
    m_log.Enter("MaterialLibrary.CloseLibrary");
}

CorvexDB::LibraryContent RecordingMaterialLibrary::Open(const std::string& path)
{
    m_log.Enter("MaterialLibrary.Open", path);
    if (opening) {
        opening();
    }
    return {static_cast<std::int32_t>(materials.size())};
}

CorvexDB::udtMaterial RecordingMaterialLibrary::MaterialAt(std::int32_t index)
{
    m_log.Enter("MaterialLibrary.MaterialAt", std::to_string(index));
    return materials.at(static_cast<std::size_t>(index));
}

void RecordingMaterialLibrary::AddMaterialToLibrary(const CorvexDB::udtMaterial& material)
{
    m_log.Enter("MaterialLibrary.AddMaterialToLibrary");
    materials.push_back(material);
}

void RecordingMaterialLibrary::DeleteMaterialFromLibrary(std::int32_t index)
{
    m_log.Enter("MaterialLibrary.DeleteMaterialFromLibrary", std::to_string(index));
    static_cast<void>(materials.at(static_cast<std::size_t>(index)));
    materials.erase(materials.begin() + index);
}

void RecordingTextureLibrary::CreateLibrary(const std::string& path)
{
    m_log.Enter("TextureLibrary.CreateLibrary", path);
    if (creating) {
        creating(path);
    }
}

void RecordingTextureLibrary::CloseLibrary()
{
    m_log.Enter("TextureLibrary.CloseLibrary");
}

CorvexDB::LibraryContent RecordingTextureLibrary::Open(const std::string& path)
{
    m_log.Enter("TextureLibrary.Open", path);
    if (opening) {
        opening();
    }
    return {static_cast<std::int32_t>(files.size())};
}

CorvexDB::TextureCollection& RecordingTextureLibrary::Textures()
{
    m_log.Enter("TextureLibrary.Textures");
    return *this;
}

std::string RecordingTextureLibrary::SelectedLibraryTexture(std::int32_t index)
{
    m_log.Enter("TextureLibrary.SelectedLibraryTexture", std::to_string(index));
    return files.at(static_cast<std::size_t>(index));
}

void RecordingTextureLibrary::AddTextureToLibrary(const std::string& file)
{
    m_log.Enter("TextureLibrary.AddTextureToLibrary", file);
    files.push_back(file);
}

void RecordingTextureLibrary::DeleteTextureFromLibrary(std::int32_t index)
{
    m_log.Enter("TextureLibrary.DeleteTextureFromLibrary", std::to_string(index));
    static_cast<void>(files.at(static_cast<std::size_t>(index)));
    files.erase(files.begin() + index);
}

std::int32_t RecordingTextureLibrary::Count()
{
    m_log.Enter("TextureCollection.Count");
    return static_cast<std::int32_t>(files.size());
}

std::string RecordingTextureLibrary::FileAt(std::int32_t index)
{
    m_log.Enter("TextureCollection.FileAt", std::to_string(index));
    return files.at(static_cast<std::size_t>(index));
}

std::vector<CorvexDB::PluginRecord> RecordingPlugins::Records()
{
    m_log.Enter("PluginTable.Records");
    return records;
}

std::vector<std::string> RecordingCustomFields::GetCustomMaterialFieldNames()
{
    m_log.Enter("CustomFields.GetCustomMaterialFieldNames");
    return names;
}

std::string
RecordingRaytrace::CombinedAttributes(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    m_log.Enter("RaytraceServices.CombinedAttributes");
    return "combined, brilliance " + std::to_string(attributes.Brilliance);
}

std::int32_t RecordingRaytrace::StartAndWait(const CorvexDB::CommandLine& commandLine)
{
    m_log.Enter("RaytraceServices.StartAndWait", commandLine.text);
    return 0;
}

void RecordingRaytrace::RaytraceAbandoned()
{
    m_log.Enter("RaytraceServices.RaytraceAbandoned");
}

void RecordingRaytrace::SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                                   std::int32_t quality)
{
    m_log.Enter("RaytraceServices.SaveAsJpeg",
                bitmapPath + " " + jpegPath + " " + std::to_string(quality));
}

}  // namespace CorvexTest
