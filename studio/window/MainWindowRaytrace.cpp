#include "MainWindow.h"

#include "RenderWindow.h"
#include "SceneWriters.h"
#include "SettingNames.h"
#include "StatusMessage.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioRaytraceServices.h"
#include "StudioSceneExporter.h"
#include "StudioSettings.h"
#include "ViewportWidget.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>

namespace studio {
namespace {

QString NoProgramText(const CorvexMaterial::ProgramFacts& facts)
{
    const QString text =
        facts.usualName.empty()
            ? MainWindow::tr("No %1 is chosen. Edit > Options > Raytracing has a field for its "
                             "program.")
            : MainWindow::tr(
                  "%1 was not found. Edit > Options > Raytracing says where it is looked for.");
    return text.arg(QString::fromUtf8(facts.noun));
}

}  // namespace

void MainWindow::BuildRaytraceMenu(QMenu* menu)
{
    menu->addAction(tr("&Render..."), QKeySequence(tr("Ctrl+R")), this, &MainWindow::RenderScene)
        ->setObjectName(QStringLiteral("renderScene"));
    QMenu* exports = menu->addMenu(tr("&Export"));
    for (const SceneWriter& writer : SceneWriters()) {
        const CorvexMaterial::SceneFacts& scene = writer.raytracer->scene;
        exports->addAction(tr(scene.title.data()) + QStringLiteral("..."), this,
                           [this, &scene] { ChooseExport(scene); });
    }
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
        Tell(NoProgramText(program.writer->raytracer->program),
             CorvexMaterial::PromptIcon::Exclamation);
        return;
    }
    auto* window = new RenderWindow(m_platform.processes, this);
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
    } catch (const CorvexMaterial::Error& error) {
        delete window;
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
}

void MainWindow::ChooseExport(const CorvexMaterial::SceneFacts& scene)
{
    const QString suffix = QString::fromUtf8(scene.suffix);
    QFileDialog dialog(this, tr("Export Scene"), m_host.Settings().Text(kExportFolderSetting),
                       QStringLiteral("%1 (*.%2)").arg(tr(scene.filter.data()), suffix));
    // A desktop's own dialog would ask about the name before it has its extension.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(QStringLiteral("scene.") + suffix);
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
            LossNote(*WriterFor(file)->raytracer, scene, m_host.RaytraceData().textures);
        m_misc->Show(note.isEmpty() ? written : written + u' ' + note);
    } catch (const CorvexMaterial::Error& error) {
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
}

}  // namespace studio
