#pragma once

// The host's data model: application state, diagnostics, libraries, plug-ins, raytrace services.
// Every operation may throw; the control reports the failure and stays usable.

#include <CorvexMaterial/CommandLine.h>
#include <CorvexMaterial/MaterialRecord.h>
#include <CorvexMaterial/PluginParameter.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace CorvexDB {

enum class Raytracer : std::int32_t { PovRay = 0, RenderMan = 1 };
inline constexpr std::size_t kRaytracerCount = 2;
enum class WebSite : std::int32_t { PovRay, RenderMan, Support };

class ApplicationState {
public:
    virtual ~ApplicationState() = default;

    /// Names the settings of this control; read afresh before each access.
    virtual std::string SettingsApplicationName() = 0;
    /// Folder of the library files, without a trailing separator. Empty when the host keeps no
    /// libraries: then none is loaded, and none missed, with the saved state.
    virtual std::string LibraryFolder() = 0;
    /// Whether raytracing with POV-Ray can be offered to the user.
    virtual bool RaytracerAvailable() = 0;
    virtual Raytracer SelectedRaytracer() = 0;
    /// Path of the program, empty when POV-Ray is not configured.
    virtual std::string PovRayProgram() = 0;
    /// 0 off, 1 depth 2, any other value depth 4.
    virtual std::int32_t AntialiasChoice() = 0;
    /// With a trailing separator, or empty.
    virtual std::string ScenePath() = 0;
    /// Texture and media folders in search order, each with a trailing separator.
    virtual std::vector<std::string> SearchFolders() = 0;
    virtual void OpenWebSite(WebSite site) = 0;
};

class Diagnostics {
public:
    virtual ~Diagnostics() = default;
    /// One line of the application's event log.
    virtual void RecordEvent(std::string_view text) = 0;
    /// One line of trace.
    virtual void DebugTrace(std::string_view text) = 0;
};

/// Asked once per use; the control caches no answer.
class GraphicsCapabilities {
public:
    virtual ~GraphicsCapabilities() = default;
    virtual bool CanBumpmap() = 0;
    virtual bool CanSpecularMap() = 0;
    virtual bool CanEnvironmentMap() = 0;
};

/// A library as the browser shows it: how many entries, in file order.
struct LibraryContent {
    std::int32_t count = 0;
    bool isFixed = false;  ///< nothing can be deleted from it
};

/// A library of the host's that is no file, such as one of the materials of its scene. The list of
/// libraries shows it behind the files.
struct HostLibrary {
    std::string name;   ///< what it is opened by and kept under in the settings; no path
    std::string title;  ///< what the list shows
};

/// Reads and writes material library files; the control only names the file and orders operations.
class MaterialLibrary {
public:
    virtual ~MaterialLibrary() = default;
    /// Makes an empty library; the control asks for it when the user typed the name of a file that
    /// is not there. A host that makes none does nothing, and the user is told that there is no
    /// such file. Errors: FileFailed.
    virtual void CreateLibrary(const std::string& /*path*/) {}
    /// Asked whenever the libraries are listed; `Open` gets the name of one.
    virtual std::vector<HostLibrary> HostLibraries() { return {}; }
    /// Opens an existing file. Errors: FileFailed.
    virtual LibraryContent Open(const std::string& path) = 0;
    /// Nothing is shown any more, be it before another `Open` or because the file is missing. A
    /// library without an open file has no entries; neither should anything else of the host use
    /// it.
    virtual void CloseLibrary() {}
    /// This and the changes below: FileFailed when the file cannot be read or written, Failed for
    /// an index that is none; nothing has changed then.
    virtual udtMaterial MaterialAt(std::int32_t index) = 0;
    virtual void AddMaterialToLibrary(const udtMaterial& material) = 0;
    virtual void DeleteMaterialFromLibrary(std::int32_t index) = 0;
};

/// The textures of the open library, in file order.
class TextureCollection {
public:
    virtual ~TextureCollection() = default;
    virtual std::int32_t Count() = 0;
    virtual std::string FileAt(std::int32_t index) = 0;
};

class TextureLibrary {
public:
    virtual ~TextureLibrary() = default;
    /// This one and `CloseLibrary` as those of the material library.
    virtual void CreateLibrary(const std::string& /*path*/) {}
    virtual LibraryContent Open(const std::string& path) = 0;
    virtual void CloseLibrary() {}
    /// Empty while no file is open.
    virtual TextureCollection& Textures() = 0;
    /// File of the texture at a browser index.
    virtual std::string SelectedLibraryTexture(std::int32_t index) = 0;
    virtual void AddTextureToLibrary(const std::string& file) = 0;
    virtual void DeleteTextureFromLibrary(std::int32_t index) = 0;
};

/// A material plug-in. The parameter table may hold up to ten rows.
class Plugin {
public:
    virtual ~Plugin() = default;
    virtual std::vector<PluginParameter> GetParameters() = 0;
};

/// One row of the host's plug-in table.
struct PluginRecord {
    std::shared_ptr<Plugin> plugin;
    std::string name;  ///< for the host; the control knows a plug-in by its place in the list
};

class PluginTable {
public:
    virtual ~PluginTable() = default;
    /// Element n belongs to entry n of the plug-in list; element 0 is a placeholder.
    virtual std::vector<PluginRecord> Records() = 0;
};

class CustomFields {
public:
    virtual ~CustomFields() = default;
    /// An empty name is a slot that is not defined; names beyond six are ignored.
    virtual std::vector<std::string> GetCustomMaterialFieldNames() = 0;
};

class RaytraceServices {
public:
    virtual ~RaytraceServices() = default;
    /// The attribute text for a raytracer scene; handed on unchanged.
    virtual std::string CombinedAttributes(const cdtRayTraceMaterialAttributes& attributes) = 0;
    /// Starts the program, waits for its end, returns its exit code. Errors: FileFailed when it
    /// cannot be started, Failed when it crashed.
    virtual std::int32_t StartAndWait(const CommandLine& commandLine) = 0;
    /// The job ended before its renderer was started.
    virtual void RaytraceAbandoned() = 0;
    /// Quality 1 to 100. Errors: FileFailed.
    virtual void SaveAsJpeg(const std::string& bitmapPath, const std::string& jpegPath,
                            std::int32_t quality) = 0;
    /// Hands a JPEG of the temporary folder over, right before it becomes a material's texture.
    /// From here on it is the host's to move and, once no material refers to it, to remove. Returns
    /// where it lies now; its name must still begin with "~CVX" and end with ".jpg", by which the
    /// control knows it again. Errors: FileFailed, and the file has not moved.
    virtual std::string KeepSimulation(const std::string& jpegPath) { return jpegPath; }
};

}  // namespace CorvexDB
