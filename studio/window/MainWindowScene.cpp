#include "MainWindow.h"
#include "MaterialExchange.h"

#include "DefaultScene.h"
#include "EventLog.h"
#include "LibraryDrag.h"
#include "LibraryStep.h"
#include "ModelOpener.h"
#include "ModelShapes.h"
#include "NamedMaterials.h"
#include "Picking.h"
#include "StatusMessage.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "TexturePaths.h"
#include "ViewportWidget.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>

namespace studio {
namespace {

QString DroppedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

}  // namespace

void MainWindow::ChooseFile()
{
    const QStringList recent = m_recent.Files();
    const QString folder = recent.isEmpty() ? QString() : QFileInfo(recent.front()).absolutePath();
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Open"), folder,
                                     tr("3D models (*.obj *.gltf *.glb *.ply *.stl *.x *.3ds *.fbx "
                                        "*.dae *.off);;Libraries (*.cvm *.cvt);;All files (*)"));
    if (!file.isEmpty()) {
        OpenFile(file);
    }
}

void MainWindow::OpenFile(const QString& file)
{
    for (const LibraryKind kind : {LibraryKind::Materials, LibraryKind::Textures}) {
        if (QFileInfo(file).suffix().toLower() == QLatin1String(LibrarySuffix(kind))) {
            return OpenLibrary(file, kind);
        }
    }
    OpenModel(file);
}

void MainWindow::OpenModel(const QString& file)
{
    m_opener->Open(file);
}

void MainWindow::ResetScene()
{
    m_host.State().SetOpenModel({});
    const QDir libraries(QString::fromStdString(m_host.State().LibraryFolder()));
    const auto gems =
        NamedMaterialsOf(libraries.filePath(QStringLiteral("Gems.cvm")).toStdString());
    ShowShapes(DefaultShapes(gems), tr("Default Scene"));
    m_viewport->SetHomeCamera(DefaultCamera());
}

void MainWindow::ShowModel(const QString& file, const ImportedModel& model)
{
    m_host.State().SetOpenModel(file);
    m_recent.Add(file);
    ShowShapes(ShapesOf(model), QFileInfo(file).fileName());
    m_viewport->SetHomeCamera(m_scene.FramedBy(DefaultCamera()));
    m_host.Log().RecordEvent("Opened " + file.toStdString());
    const std::size_t count = m_scene.All().size();
    QStringList told{count == 1 ? tr("1 shape.") : tr("%1 shapes.").arg(count)};
    if (const std::size_t missing = MissingTexturePaths(m_scene.All()).size(); missing > 0) {
        told << tr("Textures that are missing: %1. File > Find Missing Textures looks for them.")
                    .arg(missing);
    }
    const QString losses =
        m_exchange->Keep(tr("Model Opened"), model.report, model.materials.size());
    if (!losses.isEmpty()) {
        told << losses << tr("File > Last Report tells more.");
    }
    m_misc->Show(told.join(u' '));
    if (!losses.isEmpty()) {
        m_host.Log().RecordEvent(losses.toStdString());
    }
    Q_EMIT SceneOpened();
}

void MainWindow::RefuseModel(const QString& file, const QString& message)
{
    m_recent.Remove(file);
    m_host.Log().RecordEvent("Not opened: " + message.toStdString());
    Tell(message, CorvexMaterial::PromptIcon::Exclamation);
    Q_EMIT SceneRefused(message);
}

// The selection and all steps but those of libraries belong to the shapes that go.
void MainWindow::ShowShapes(StudioScene::Shapes shapes, const QString& title)
{
    m_selection.Clear();
    KeepOnlyLibrarySteps(m_history);
    m_scene.SetShapes(std::move(shapes));
    setWindowTitle(tr("%1 - Corvex Studio").arg(title));
    m_viewport->Draw();
}

std::shared_ptr<StudioShape> MainWindow::ShapeAt(QPoint position) const
{
    const Ray ray = m_viewport->Camera().RayThrough(position, m_viewport->size());
    const auto hit = PickNearest(ray, m_scene.All());
    return hit ? hit->shape : nullptr;
}

void MainWindow::PickAt(QPoint position, Qt::KeyboardModifiers modifiers)
{
    m_selection.Click(ShapeAt(position), modifiers);
}

void MainWindow::SelectAll()
{
    m_selection.Set(m_scene.All());
}

void MainWindow::Frame(StudioScene& scene)
{
    m_viewport->SetCamera(scene.FramedBy(m_viewport->Camera()));
    m_viewport->Draw();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    // An image is for a shape, not for the window.
    const bool isModel = DraggedTexture(*event->mimeData()).isEmpty();
    if (isModel && !DroppedFile(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    OpenFile(DroppedFile(event->mimeData()));
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::DragEnter) {
        dragEnterEvent(static_cast<QDragEnterEvent*>(event));
    } else if (event->type() == QEvent::Drop) {
        dropEvent(static_cast<QDropEvent*>(event));
    } else {
        return QMainWindow::eventFilter(watched, event);
    }
    return true;
}

}  // namespace studio
