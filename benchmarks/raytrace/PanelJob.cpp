#include "PanelJob.h"

#include "SettingNames.h"
#include "StudioProfile.h"
#include "StudioScene.h"
#include "StudioSettings.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/WarningCatalogue.h>

#include <QAbstractButton>
#include <QFile>

namespace CorvexBenchmark {
namespace {

CorvexMaterial::Host HostWith(CorvexMaterial::Host& base, CorvexSG::SceneExporter& exporter)
{
    return {base.applicationState, base.diagnostics,    base.graphics,
            base.materialLibrary,  base.textureLibrary, base.plugins,
            base.customFields,     base.raytrace,       exporter,
            base.viewports,        base.editports,      base.numbers};
}

}  // namespace

std::string PanelJob::KeepingExporter::ExportRaytraceScene(const CorvexSG::RaytraceExport& request)
{
    const std::string written = m_exporter.ExportRaytraceScene(request);
    QFile::copy(QString::fromStdString(written), m_kept);
    return written;
}

PanelJob::PanelJob(QSize size, const QString& keptScene)
    : m_studio(studio::ProfileIn(m_profile.path()), m_desktop.Get().settings,
               m_desktop.Get().processes),
      m_exporter(m_studio.Get().exporter, keptScene), m_host(HostWith(m_studio.Get(), m_exporter)),
      m_panel(m_host, m_desktop.Get(), nullptr)
{
    m_studio.Settings().SetNumber(studio::kAntialiasSetting, 0);
    m_desktop.Get().settings.Write({m_studio.Settings().Application(),
                                    std::string(CorvexMaterial::kTipsSection),
                                    "POVRayConfiguration"},
                                   "0");
    m_panel.SetSceneDetails(m_studio.SceneGraph());
    m_panel.InitializeMaterialPreviewScene();
    m_panel.put_bMaterialPanel(true);
    m_panel.findChild<studio::ViewportWidget*>()->setFixedSize(size);
    m_preview = m_panel.findChild<QAbstractButton*>(QStringLiteral("cmdPreview"));
    m_panel.show();
    Run();
}

void PanelJob::Run()
{
    m_preview->click();
}

}  // namespace CorvexBenchmark
