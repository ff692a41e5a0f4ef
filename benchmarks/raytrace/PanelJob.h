#pragma once

#include "StudioHost.h"
#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/QtPlatform.h>

#include <QTemporaryDir>

class QAbstractButton;

namespace CorvexBenchmark {

/// The panel's raytraced preview as a user starts it: export, settings, launcher, waiting behind
/// the progress, picture.
class PanelJob {
public:
    /// The preview's size in pixels. The first job's scene is kept in the file.
    PanelJob(QSize size, const QString& keptScene);

    void Run();

private:
    /// Copies the first scene that passes through it.
    class KeepingExporter : public CorvexSG::SceneExporter {
    public:
        KeepingExporter(CorvexSG::SceneExporter& exporter, QString kept)
            : m_exporter(exporter), m_kept(std::move(kept))
        {
        }
        std::string ExportRaytraceScene(const CorvexSG::RaytraceExport& request) override;
        std::vector<std::string> TexturesInUse(CorvexSG::Scene& scene) override
        {
            return m_exporter.TexturesInUse(scene);
        }
        void RaytraceEnded() override { m_exporter.RaytraceEnded(); }

    private:
        CorvexSG::SceneExporter& m_exporter;
        QString m_kept;
    };

    QTemporaryDir m_profile;
    CorvexMaterial::QtPlatform m_desktop;
    studio::StudioHost m_studio;
    KeepingExporter m_exporter;
    CorvexMaterial::Host m_host;
    CorvexMaterial::Material m_panel;
    QAbstractButton* m_preview = nullptr;
};

}  // namespace CorvexBenchmark
