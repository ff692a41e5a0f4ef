#include "StudioHost.h"

#include "EventLog.h"
#include "HostViewport.h"
#include "LibraryBrowsers.h"
#include "NumberField.h"
#include "PluginFolder.h"
#include "PluginMaterials.h"
#include "PluginTextures.h"
#include "RenderService.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "StudioApplicationState.h"
#include "StudioRaytraceServices.h"
#include "StudioScene.h"
#include "StudioSceneExporter.h"
#include "StudioTables.h"
#include "TextureCache.h"
#include "Thumbnailer.h"

namespace studio {
namespace {

bool CanDraw(RenderService& rendering)
{
    Frame probe;
    probe.width = 1;
    probe.height = 1;
    try {
        return !rendering.DrawNow(probe).isNull();
    } catch (const CorvexMaterial::Error&) {
        return false;
    }
}

}  // namespace

struct StudioHost::Parts {
    Parts(const StudioProfile& profile, CorvexMaterial::SettingsStore& store,
          CorvexMaterial::ProcessStarter& processes)
        : settings(store, profile.settingsApplication), state(profile, settings),
          log(profile.stateFolder), graphics([this] { return CanDraw(rendering); }),
          customFields(settings), simulations(profile.dataFolder + QStringLiteral("/Simulations")),
          raytrace(simulations, processes), viewports(rendering), marks(MarksFile(profile))
    {
        rendering.SetCompletion([this](Frame& frame) { pluginMaterials.Complete(frame); });
        RemoveLostSimulations();
    }
    ~Parts() { RemoveLostSimulations(); }
    Parts(const Parts&) = delete;
    Parts& operator=(const Parts&) = delete;

    /// At the beginning and at the end there is no control and no scene: what the settings name is
    /// all that refers to a picture.
    void RemoveLostSimulations() noexcept
    {
        try {
            simulations.KeepOnly(settings.SavedPictures());
        } catch (const std::exception& error) {
            log.RecordEvent(std::string("Simulations: ") + error.what());
        }
    }

    StudioSettings settings;
    StudioApplicationState state;
    EventLog log;
    RenderService rendering;
    StudioSceneGraph sceneGraph;
    StudioGraphics graphics;
    PluginFolder plugins{PluginFolder::UsualFolders()};
    PluginTextures pluginTextures{plugins};
    PluginMaterials pluginMaterials{pluginTextures};
    StudioCustomFields customFields;
    Thumbnailer thumbnails{rendering, &pluginTextures};
    SqliteMaterialLibrary materialLibrary{{thumbnails, customFields, log}};
    SqliteTextureLibrary textureLibrary;
    SimulationPictures simulations;
    StudioRaytraceServices raytrace;
    RaytraceSources raytraceSources{
        [this](const std::string& file) { return rendering.Textures().Await(file); },
        [this](Frame& frame) { pluginMaterials.CompleteNow(frame); },
        [this] { return customFields.GetCustomMaterialFieldNames(); }};
    StudioSceneExporter exporter{raytraceSources};
    HostViewportFactory viewports;
    UserMarks marks;
    LibraryBrowsers browsers{[this] { return materialLibrary.File(); },
                             [this] { return textureLibrary.File(); },
                             [this] { return customFields.GetCustomMaterialFieldNames(); }, marks};
    NumberField numbers;
    CorvexMaterial::Host host{state,          log,       graphics,     materialLibrary,
                              textureLibrary, plugins,   customFields, raytrace,
                              exporter,       viewports, browsers,     numbers};
};

StudioHost::StudioHost(const StudioProfile& profile, CorvexMaterial::SettingsStore& store,
                       CorvexMaterial::ProcessStarter& processes)
    : m_parts(std::make_unique<Parts>(profile, store, processes))
{
}

StudioHost::~StudioHost() = default;

CorvexMaterial::Host& StudioHost::Get()
{
    return m_parts->host;
}

StudioSettings& StudioHost::Settings()
{
    return m_parts->settings;
}

StudioApplicationState& StudioHost::State()
{
    return m_parts->state;
}

EventLog& StudioHost::Log()
{
    return m_parts->log;
}

RenderService& StudioHost::Rendering()
{
    return m_parts->rendering;
}

HostViewport* StudioHost::Preview()
{
    return m_parts->viewports.Latest();
}

PluginFolder& StudioHost::Plugins()
{
    return m_parts->plugins;
}

PluginTextures& StudioHost::PluginPictures()
{
    return m_parts->pluginTextures;
}

StudioRaytraceServices& StudioHost::Raytracing()
{
    return m_parts->raytrace;
}

const RaytraceSources& StudioHost::RaytraceData()
{
    return m_parts->raytraceSources;
}

SqliteMaterialLibrary& StudioHost::Materials()
{
    return m_parts->materialLibrary;
}

SqliteTextureLibrary& StudioHost::Textures()
{
    return m_parts->textureLibrary;
}

const Thumbnailer& StudioHost::Thumbnails()
{
    return m_parts->thumbnails;
}

LibraryBrowsers& StudioHost::Browsers()
{
    return m_parts->browsers;
}

StudioSceneGraph& StudioHost::SceneGraph()
{
    return m_parts->sceneGraph;
}

HostViewportFactory& StudioHost::Viewports()
{
    return m_parts->viewports;
}

}  // namespace studio
