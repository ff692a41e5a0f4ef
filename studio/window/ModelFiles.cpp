#include "ModelFiles.h"

#include "DefaultScene.h"
#include "Interchange.h"
#include "LibraryDrag.h"
#include "LibraryStep.h"
#include "MaterialExchange.h"
#include "ModelOpener.h"
#include "ModelShapes.h"
#include "NamedMaterials.h"
#include "ScenePane.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "TexturePaths.h"
#include "ViewportWidget.h"
#include "WindowMessages.h"
#include <CorvexMaterial/PlainText.h>

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QMimeData>

namespace studio {
namespace {

QString DroppedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

ImportProgram KeepingPictures(ImportProgram importer, std::string folder)
{
    importer.pictureFolder = std::move(folder);
    return importer;
}

}  // namespace

ModelFiles::ModelFiles(const Parts& parts, ImportProgram importer)
    : m_parts(parts), m_recent(parts.host.Settings()),
      m_opener(new ModelOpener(
          parts.window, KeepingPictures(std::move(importer), parts.host.State().LibraryFolder())))
{
    m_opener->setParent(this);
    connect(m_opener, &ModelOpener::Opened, this, &ModelFiles::ShowModel);
    connect(m_opener, &ModelOpener::Refused, this, &ModelFiles::RefuseModel);
    connect(m_opener, &ModelOpener::Cancelled, this, [this](const QString& file) {
        const QString message = tr("%1 was not opened.").arg(QFileInfo(file).fileName());
        m_parts.messages.Show(message);
        Q_EMIT SceneRefused(message);
    });
}

void ModelFiles::AddTo(QMenu& menu)
{
    menu.addAction(tr("&Open..."), QKeySequence::Open, this, &ModelFiles::ChooseFile);
    QMenu* recent = menu.addMenu(tr("Open Re&cent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { ListRecentFiles(recent); });
    menu.addAction(tr("Reset &Scene"), this, &ModelFiles::ResetScene);
}

void ModelFiles::ListRecentFiles(QMenu* menu)
{
    menu->clear();
    const QStringList files = m_recent.Files();
    for (const QString& file : files) {
        QAction* action = menu->addAction(CorvexMaterial::PlainCaption(QFileInfo(file).fileName()),
                                          this, [this, file] { OpenModel(file); });
        action->setStatusTip(file);
    }
    if (files.isEmpty()) {
        menu->addAction(tr("No recent models"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    menu->addAction(tr("&Clear List"), this, [this] { m_recent.Clear(); });
}

QString ModelFiles::Folder() const
{
    const QStringList recent = m_recent.Files();
    return recent.isEmpty() ? QString() : QFileInfo(recent.front()).absolutePath();
}

void ModelFiles::ChooseFile()
{
    const QString file = QFileDialog::getOpenFileName(
        &m_parts.window, tr("Open"), Folder(),
        tr("3D models (%1);;Libraries (*.cvm *.cvt);;All files (*)").arg(ModelPatterns()));
    if (!file.isEmpty()) {
        Open(file);
    }
}

void ModelFiles::Open(const QString& file)
{
    for (const LibraryKind kind : {LibraryKind::Materials, LibraryKind::Textures}) {
        if (QFileInfo(file).suffix().toLower() == QLatin1String(LibrarySuffix(kind))) {
            Q_EMIT LibraryOpened(file, kind);
            return;
        }
    }
    OpenModel(file);
}

void ModelFiles::OpenModel(const QString& file)
{
    m_opener->Open(file);
}

void ModelFiles::ResetScene()
{
    m_parts.host.State().SetOpenModel({});
    const QDir libraries(QString::fromStdString(m_parts.host.State().LibraryFolder()));
    const auto gems =
        NamedMaterialsOf(libraries.filePath(QStringLiteral("Gems.cvm")).toStdString());
    ShowShapes(DefaultShapes(gems), tr("Default Scene"));
    m_parts.scene.Viewport().SetHomeCamera(DefaultCamera());
}

void ModelFiles::ShowModel(const QString& file, const ImportedModel& model)
{
    m_parts.host.State().SetOpenModel(file);
    m_recent.Add(file);
    ShowShapes(ShapesOf(model), QFileInfo(file).fileName());
    m_parts.scene.Viewport().SetHomeCamera(m_parts.scene.Scene().FramedBy(DefaultCamera()));
    m_parts.messages.Log(QStringLiteral("Opened ") + file);
    TellOf(model);
    Q_EMIT SceneOpened();
}

void ModelFiles::TellOf(const ImportedModel& model)
{
    const StudioScene::Shapes& shapes = m_parts.scene.Scene().All();
    QStringList told{shapes.size() == 1 ? tr("1 shape.") : tr("%1 shapes.").arg(shapes.size())};
    if (const std::size_t missing = MissingTexturePaths(shapes).size(); missing > 0) {
        told << tr("Textures that are missing: %1. File > Find Missing Textures looks for them.")
                    .arg(missing);
    }
    const QString losses =
        m_parts.exchange.Keep(tr("Model Opened"), model.report, model.materials.size());
    if (!losses.isEmpty()) {
        told << losses << tr("File > Last Report tells more.");
        m_parts.messages.Log(losses);
    }
    m_parts.messages.Show(told.join(u' '));
}

void ModelFiles::RefuseModel(const QString& file, const QString& message)
{
    m_recent.Remove(file);
    m_parts.messages.Log(QStringLiteral("Not opened: ") + message);
    m_parts.messages.Tell(message);
    Q_EMIT SceneRefused(message);
}

// All steps but those of libraries belong to the shapes that go.
void ModelFiles::ShowShapes(StudioScene::Shapes shapes, const QString& title)
{
    KeepOnlyLibrarySteps(m_parts.history);
    m_parts.scene.Show(std::move(shapes));
    m_parts.window.setWindowTitle(tr("%1 - Corvex Studio").arg(title));
}

void ModelFiles::AcceptDropsOn(QWidget& widget)
{
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
}

bool ModelFiles::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::DragEnter) {
        auto* enter = static_cast<QDropEvent*>(event);
        // An image is for a shape, not for the window.
        const bool isModel = DraggedTexture(*enter->mimeData()).isEmpty();
        if (isModel && !DroppedFile(enter->mimeData()).isEmpty()) {
            enter->acceptProposedAction();
        }
        return true;
    }
    if (event->type() == QEvent::Drop) {
        auto* drop = static_cast<QDropEvent*>(event);
        drop->acceptProposedAction();
        Open(DroppedFile(drop->mimeData()));
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace studio
