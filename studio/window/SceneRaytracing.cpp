#include "SceneRaytracing.h"

#include "FileWork.h"
#include "RenderWindow.h"
#include "SaveDialog.h"
#include "ScenePane.h"
#include "SceneWriters.h"
#include "SettingNames.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioRaytraceServices.h"
#include "StudioSceneExporter.h"
#include "StudioSettings.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"

#include <QFileInfo>
#include <QMenu>

namespace studio {
namespace {

QString NoProgramText(const CorvexMaterial::ProgramFacts& facts)
{
    const QString text =
        facts.usualName.empty()
            ? SceneRaytracing::tr("No %1 is chosen. Edit > Options > Raytracing has a field for "
                                  "its program.")
            : SceneRaytracing::tr(
                  "%1 was not found. Edit > Options > Raytracing says where it is looked for.");
    return text.arg(QString::fromUtf8(facts.noun));
}

}  // namespace

SceneRaytracing::SceneRaytracing(const Parts& parts) : m_parts(parts)
{
    parts.host.Raytracing().SetAbandoned(
        [this] { m_parts.messages.Show(tr("The raytracer was not started.")); });
}

SceneRaytracing::~SceneRaytracing()
{
    m_parts.host.Raytracing().SetAbandoned({});
}

void SceneRaytracing::AddTo(QMenu& menu)
{
    QAction* render = menu.addAction(tr("&Render..."), QKeySequence(tr("Ctrl+R")), this,
                                     &SceneRaytracing::Render);
    render->setObjectName(QStringLiteral("renderScene"));
    render->setStatusTip(tr("Draws the scene with the raytracer of the options"));
    QMenu* exports = menu.addMenu(tr("Export &for Raytracer"));
    exports->menuAction()->setStatusTip(tr("Writes the scene as a raytracer reads it"));
    for (const SceneWriter& writer : SceneWriters()) {
        const CorvexMaterial::SceneFacts& scene = writer.raytracer->scene;
        exports
            ->addAction(tr(scene.title.data()) + QStringLiteral("..."), this,
                        [this, &scene] { ChooseExport(scene); })
            ->setStatusTip(exports->menuAction()->statusTip());
    }
}

RaytraceScene SceneRaytracing::SceneToRaytrace()
{
    StudioScene& scene = m_parts.scene.Scene();
    const Frame frame = m_parts.scene.Viewport().CurrentFrame();
    scene.SetView({frame.camera, frame.background, frame.backdrop, {frame.width, frame.height}});
    return RaytraceSceneOf(scene, m_parts.host.RaytraceData());
}

void SceneRaytracing::Render()
{
    const RaytracerProgram program = m_parts.host.State().Raytracer();
    if (program.path.isEmpty()) {
        m_parts.messages.Tell(NoProgramText(program.writer->raytracer->program));
        return;
    }
    auto* window = new RenderWindow(m_parts.processes, &m_parts.window);
    window->setObjectName(QStringLiteral("renderWindow"));
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->SetFolder(m_parts.host.Settings().Text(kExportFolderSetting));
    connect(window, &RenderWindow::FolderChosen, this, &SceneRaytracing::KeepFolder);
    const bool isStarted = m_parts.messages.Telling([&] {
        window->ShowMeanwhile(m_parts.scene.Viewport().grab());
        window->Start(program, SceneToRaytrace(), m_parts.host.RaytraceData().textures,
                      m_parts.host.State().AntialiasChoice());
        window->show();
    });
    if (!isStarted) {
        delete window;
    }
}

void SceneRaytracing::ChooseExport(const CorvexMaterial::SceneFacts& scene)
{
    const QString filter =
        QStringLiteral("%1 (*.%2)").arg(tr(scene.filter.data()), QString::fromUtf8(scene.suffix));
    const QString file =
        AskForTarget(m_parts.window, {tr("Export Scene"),
                                      m_parts.host.Settings().Text(kExportFolderSetting),
                                      {filter},
                                      QStringLiteral("scene")});
    if (!file.isEmpty()) {
        KeepFolder(QFileInfo(file).absolutePath());
        Export(file);
    }
}

void SceneRaytracing::KeepFolder(const QString& folder)
{
    m_parts.host.Settings().SetText(kExportFolderSetting, folder);
}

void SceneRaytracing::Export(const QString& file)
{
    m_parts.messages.Telling([&] {
        const QString name = QFileInfo(file).fileName();
        const auto note = std::make_shared<QString>();
        m_parts.work.Start(
            tr("Writing %1...").arg(name),
            [file, note, scene = SceneToRaytrace(),
             textures = m_parts.host.RaytraceData().textures](const std::stop_token& stop) {
                WriteRaytraceScene(file, scene, textures, ImagesBeside(file), stop);
                *note = LossNote(*WriterFor(file)->raytracer, scene, textures);
            },
            [this, note, name] {
                const QString written = tr("%1 was written.").arg(name);
                m_parts.messages.Show(note->isEmpty() ? written : written + u' ' + *note);
            });
    });
}

}  // namespace studio
