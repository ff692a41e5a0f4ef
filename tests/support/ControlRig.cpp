#include "tests/support/ControlRig.h"

namespace CorvexTest {

using CorvexMaterial::Material;

ControlRig::ControlRig() : m_host(host.Get()), m_platform(platform.Get()) {}

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

const CorvexDB::udtMaterial& ControlRig::Previewed() const
{
    const RecordingShape* shape = host.Viewport()->TheScene().Shown();
    if (shape == nullptr) {
        throw std::logic_error("the preview shows no shape");
    }
    return shape->Material();
}

QLineEdit& ControlRig::Field(const char* name)
{
    return Find<QLineEdit>(name);
}

QCheckBox& ControlRig::Tick(const char* name)
{
    return Find<QCheckBox>(name);
}

QComboBox& ControlRig::List(const char* name)
{
    return Find<QComboBox>(name);
}

void ControlRig::Press(const char* name)
{
    Click(Find<QWidget>(name));
}

void ControlRig::Listen()
{
    Material* control = m_control.get();
    const auto note = [this](const char* name) { return [this, name] { log.Note(name); }; };
    QObject::connect(control, &Material::MaterialChanged, note("Event.MaterialChanged"));
    QObject::connect(control, &Material::TextureLibraryExpanded,
                     note("Event.TextureLibraryExpanded"));
    QObject::connect(control, &Material::MaterialLibraryExpanded,
                     note("Event.MaterialLibraryExpanded"));
    QObject::connect(control, &Material::DisplayPositionInformation,
                     [this](const QString& text) { positionTexts.push_back(text); });
    QObject::connect(control, &Material::evtReqWarn,
                     [this](const QString& application, const QString& text, const QString& key) {
                         warnings.push_back({application, text, key});
                     });
}

}  // namespace CorvexTest
