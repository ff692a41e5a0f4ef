#include "FileOpening.h"

#include "DocumentSchema.h"
#include "Interchange.h"
#include "LibraryDrag.h"
#include "ShownText.h"

#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QUrl>

namespace studio {
namespace {

QString DroppedFile(const QMimeData* data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.front().toLocalFile() : QString();
}

QString Filters()
{
    const QString models = ModelPatterns();
    return FileOpening::tr("Everything that can be opened (*.corvex %1 *.cvm *.cvt *.mtl *.mtlx);;"
                           "Scene documents (*.corvex);;3D models (%1);;Libraries (*.cvm *.cvt);;"
                           "Materials (*.mtl *.mtlx);;All files (*)")
        .arg(models);
}

}  // namespace

FileOpening::FileOpening(StudioSettings& settings, QWidget& window)
    : m_recent(settings), m_window(window)
{
}

void FileOpening::AddTo(QMenu& menu)
{
    menu.addAction(tr("&Open..."), QKeySequence::Open, this, &FileOpening::ChooseFile)
        ->setStatusTip(tr("Opens a document, a model, a library or materials"));
    QMenu* recent = menu.addMenu(tr("Open Re&cent"));
    recent->menuAction()->setStatusTip(tr("What was opened last"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { ListRecentFiles(recent); });
}

void FileOpening::ListRecentFiles(QMenu* menu)
{
    menu->clear();
    const QStringList files = m_recent.Files();
    for (const QString& file : files) {
        const QString name = MenuCaption(QFileInfo(file).fileName());
        const qsizetype number = menu->actions().size() + 1;
        QAction* action = menu->addAction(QStringLiteral("&%1 %2").arg(number).arg(name), this,
                                          [this, file] { Open(file); });
        action->setStatusTip(file);
        action->setEnabled(QFileInfo::exists(file));
    }
    if (files.isEmpty()) {
        menu->addAction(tr("Nothing was opened yet"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    menu->addAction(tr("&Clear List"), this, [this] { m_recent.Clear(); })
        ->setStatusTip(tr("Forgets these files; they stay where they are"));
}

QString FileOpening::Folder() const
{
    const QStringList recent = m_recent.Files();
    return recent.isEmpty() ? QString() : QFileInfo(recent.front()).absolutePath();
}

void FileOpening::ChooseFile()
{
    const QString file = QFileDialog::getOpenFileName(&m_window, tr("Open"), Folder(), Filters());
    if (!file.isEmpty()) {
        Open(file);
    }
}

void FileOpening::Open(const QString& named)
{
    const QUrl url(named);
    const QString file = url.isLocalFile() ? url.toLocalFile() : named;
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix == QLatin1String(kDocumentSuffix)) {
        Q_EMIT DocumentWanted(file);
        return;
    }
    for (const LibraryKind kind : {LibraryKind::Materials, LibraryKind::Textures}) {
        if (suffix == QLatin1String(LibrarySuffix(kind))) {
            Q_EMIT LibraryWanted(file, kind);
            return;
        }
    }
    const bool isMaterials = suffix == QLatin1String("mtl") || suffix == QLatin1String("mtlx");
    Q_EMIT(isMaterials ? MaterialsWanted(file) : ModelWanted(file));
}

void FileOpening::AcceptDropsOn(QWidget& widget)
{
    widget.setAcceptDrops(true);
    widget.installEventFilter(this);
}

bool FileOpening::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::DragEnter) {
        auto* enter = static_cast<QDropEvent*>(event);
        // An image is for a shape, not for the window.
        const bool isOpened = DraggedTexture(*enter->mimeData()).isEmpty();
        if (isOpened && !DroppedFile(enter->mimeData()).isEmpty()) {
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
