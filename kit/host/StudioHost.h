#pragma once

#include "StudioProfile.h"
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Processes.h>
#include <CorvexMaterial/SettingsStore.h>

#include <memory>

namespace studio {

class HostViewport;
class EventLog;
class HostViewportFactory;
class LibraryBrowsers;
class PluginFolder;
class PluginTextures;
class RenderService;
class SqliteMaterialLibrary;
class SqliteTextureLibrary;
class StudioApplicationState;
class StudioRaytraceServices;
class StudioSceneGraph;
class StudioSettings;
class Thumbnailer;
struct RaytraceSources;

/// Everything that the control asks of its host, each part in a class of its own. Created after the
/// application object, destroyed before it and after the control.
class StudioHost {
public:
    /// Store and processes outlive this object.
    StudioHost(const StudioProfile& profile, CorvexMaterial::SettingsStore& store,
               CorvexMaterial::ProcessStarter& processes);
    ~StudioHost();
    StudioHost(const StudioHost&) = delete;
    StudioHost& operator=(const StudioHost&) = delete;

    /// Lives as long as this object, as everything below does.
    [[nodiscard]] CorvexMaterial::Host& Get();
    [[nodiscard]] StudioSettings& Settings();
    [[nodiscard]] StudioApplicationState& State();
    [[nodiscard]] EventLog& Log();
    [[nodiscard]] RenderService& Rendering();
    /// The preview of the latest control; null without one.
    [[nodiscard]] HostViewport* Preview();
    [[nodiscard]] PluginFolder& Plugins();
    [[nodiscard]] PluginTextures& PluginPictures();
    [[nodiscard]] StudioRaytraceServices& Raytracing();
    [[nodiscard]] const RaytraceSources& RaytraceData();
    [[nodiscard]] SqliteMaterialLibrary& Materials();
    [[nodiscard]] SqliteTextureLibrary& Textures();
    [[nodiscard]] const Thumbnailer& Thumbnails();
    [[nodiscard]] LibraryBrowsers& Browsers();
    [[nodiscard]] StudioSceneGraph& SceneGraph();
    [[nodiscard]] HostViewportFactory& Viewports();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace studio
