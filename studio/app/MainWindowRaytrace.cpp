#include "studio/app/MainWindow.h"

#include "studio/app/SettingNames.h"
#include "studio/app/StatusMessage.h"
#include "studio/app/StudioApplicationState.h"
#include "studio/app/StudioHost.h"
#include "studio/app/StudioSettings.h"
#include "studio/raytrace/RaytracerPrograms.h"
#include "studio/raytrace/RenderWindow.h"
#include "studio/raytrace/StudioRaytraceServices.h"
#include "studio/raytrace/StudioSceneExporter.h"
#include "studio/raytrace/povray/PovRayStage.h"
#include "studio/render/ViewportWidget.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>

namespace studio {
namespace {

/// For a person; empty when each shape mirrors what it should.
QString EnvironmentNote(const RaytraceScene& scene)
{
    const int foreign = ShapesWithForeignEnvironment(scene);
    return foreign == 0 ? QString()
                        : QCoreApplication::translate(
                              "MainWindow",
                              "POV-Ray has one environment map for a scene; shapes that mirror"
                              " another's: %n.",
                              nullptr, foreign);
}

}  // namespace

void MainWindow::BuildRaytraceMenu(QMenu* menu)
{
    menu->addAction(tr("&Render..."), QKeySequence(tr("Ctrl+R")), this, &MainWindow::RenderScene)
        ->setObjectName(QStringLiteral("renderScene"));
    QMenu* exports = menu->addMenu(tr("&Export"));
    exports->addAction(tr("&POV-Ray Scene..."), this, [this] {
        ChooseExport(tr("POV-Ray scenes (*.pov)"), QStringLiteral(".pov"));
    });
    exports->addAction(tr("&RIB..."), this, [this] {
        ChooseExport(tr("RenderMan scenes (*.rib)"), QStringLiteral(".rib"));
    });
    m_host.Raytracing().SetAbandoned(
        [this] { m_misc->Show(tr("The raytracer was not started.")); });
}

RaytraceScene MainWindow::SceneToRaytrace()
{
    const studio::Frame frame = m_viewport->CurrentFrame();
    m_scene.SetView({frame.camera, frame.background, frame.backdrop, {frame.width, frame.height}});
    return RaytraceSceneOf(m_scene, m_host.RaytraceData());
}

void MainWindow::RenderScene()
{
    const RaytracerProgram program = m_host.State().Raytracer();
    if (program.path.isEmpty()) {
        Tell(program.kind == CorvexDB::Raytracer::RenderMan
                 ? tr("No RenderMan renderer is chosen. Edit > Options > Raytracing has a field "
                      "for its program.")
                 : tr("POV-Ray was not found. Edit > Options > Raytracing says where it is looked "
                      "for."),
             CorvexMaterial::PromptIcon::Exclamation);
        return;
    }
    auto* window = new RenderWindow(this);
    window->setObjectName(QStringLiteral("renderWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->SetFolder(m_host.Settings().Text(kExportFolderSetting));
    connect(window, &RenderWindow::FolderChosen, this, &MainWindow::KeepExportFolder);
    try {
        window->ShowMeanwhile(m_viewport->grab());
        const RaytraceScene scene = SceneToRaytrace();
        window->Start(program, scene, m_host.RaytraceData().textures,
                      m_host.State().AntialiasChoice());
        window->show();
        m_misc->Show(program.kind == CorvexDB::Raytracer::PovRay ? EnvironmentNote(scene)
                                                                 : QString());
    } catch (const CorvexMaterial::Error& error) {
        delete window;
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
}

void MainWindow::ChooseExport(const QString& filter, const QString& suffix)
{
    QFileDialog dialog(this, tr("Export Scene"), m_host.Settings().Text(kExportFolderSetting),
                       filter);
    // A desktop's own dialog would ask about the name before it has its extension.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix.mid(1));
    dialog.selectFile(QStringLiteral("scene") + suffix);
    if (dialog.exec() == QDialog::Accepted) {
        KeepExportFolder(dialog.directory().absolutePath());
        ExportScene(dialog.selectedFiles().value(0));
    }
}

void MainWindow::KeepExportFolder(const QString& folder)
{
    m_host.Settings().SetText(kExportFolderSetting, folder);
}

void MainWindow::ExportScene(const QString& file)
{
    try {
        const RaytraceScene scene = SceneToRaytrace();
        WriteRaytraceScene(file, scene, m_host.RaytraceData().textures, ImagesBeside(file));
        const QString written = tr("%1 was written.").arg(QFileInfo(file).fileName());
        const QString note =
            file.endsWith(QStringLiteral(".pov")) ? EnvironmentNote(scene) : QString();
        m_misc->Show(note.isEmpty() ? written : written + u' ' + note);
    } catch (const CorvexMaterial::Error& error) {
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
}

}  // namespace studio
