#include "ControlRig.h"

#include <CorvexMaterial/Translations.h>

namespace CorvexTest {

using CorvexMaterial::Material;

ControlRig::ControlRig() : m_host(host.Get()), m_platform(platform.Get())
{
    // Once: "1 shape" and "2 shapes".
    [[maybe_unused]] static const bool translated = CorvexMaterial::InstallTranslations();
    for (const char* tip : {"POVRayConfiguration", "Simulation Texture", "MaterialTIF"}) {
        platform.settings.PutTip(tip, "0");
    }
}

ControlRig::~ControlRig() = default;

void ControlRig::Create()
{
    m_control = std::make_unique<Material>(m_host, m_platform, nullptr);
    Listen();
    m_control->show();
}

void ControlRig::Start()
{
    Create();
    m_control->SetSceneDetails(host.sceneGraph);
    m_control->InitializeMaterialPreviewScene();
    m_control->LoadSavedStatus();
    m_control->put_bMaterialPanel(true);
    log.Clear();
}

void ControlRig::Terminate()
{
    m_control.reset();
}

void ControlRig::Restart()
{
    Terminate();
    Start();
}

void ControlRig::ChoosePlugin(const std::string& name, const std::function<Parameters()>& answer)
{
    const auto plugin = std::make_shared<RecordingPlugin>(log);
    plugin->answer = answer;
    host.plugins.records = {{nullptr, "None"}, {plugin, name}};
    m_control->ClearPluginList();
    m_control->AddToPluginList(name);
    Choose(List("cboPlugin"), QString::fromStdString(name));
}

const CorvexDB::udtMaterial& ControlRig::Previewed() const
{
    const RecordingShape* shape = host.Viewport()->TheScene().Shown();
    if (shape == nullptr) {
        throw std::logic_error("the preview shows no shape");
    }
    return shape->Material();
}

std::string ControlRig::ShownMesh() const
{
    const RecordingShape* shown = host.Viewport()->TheScene().Shown();
    return shown == nullptr ? "nothing" : shown->MeshFile();
}

void ControlRig::Reveal(const QWidget& widget)
{
    auto& tabs = Find<QTabBar>("tabChannels");
    if (widget.isVisible() || !tabs.isVisible()) {
        return;
    }
    const auto known = m_tabs.find(widget.objectName());
    if (known != m_tabs.end()) {
        tabs.setCurrentIndex(known->second);
        return;
    }
    for (int tab = 0; tab < tabs.count() && !widget.isVisible(); ++tab) {
        tabs.setCurrentIndex(tab);
        m_tabs[widget.objectName()] = tab;
    }
}

void ControlRig::Listen()
{
    Material* control = m_control.get();
    const auto note = [this](const char* name) { return [this, name] { log.Note(name); }; };
    QObject::connect(control, &Material::MaterialChanged, note("Event.MaterialChanged"));
    QObject::connect(control, &Material::Edited, [this](const CorvexMaterial::MaterialEdit& edit) {
        log.Note("Event.Edited");
        edits.push_back(edit);
    });
    QObject::connect(control, &Material::TextureLibraryExpanded,
                     note("Event.TextureLibraryExpanded"));
    QObject::connect(control, &Material::MaterialLibraryExpanded,
                     note("Event.MaterialLibraryExpanded"));
    QObject::connect(control, &Material::DisplayPositionInformation,
                     [this](const QString& text) { positionTexts.push_back(text); });
    QObject::connect(control, &Material::DisplayMiscInformation, [this](const QString& text) {
        log.Note("Event.DisplayMiscInformation");
        statusTexts.push_back(text);
    });
    QObject::connect(control, &Material::evtReqWarn,
                     [this](const QString& application, const QString& text, const QString& key) {
                         log.Note("Event.evtReqWarn");
                         warnings.push_back({application, text, key});
                     });
}

}  // namespace CorvexTest
