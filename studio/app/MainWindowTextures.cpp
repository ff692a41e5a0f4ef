#include "studio/app/FindTexturesDialog.h"
#include "studio/app/MainWindow.h"
#include "studio/app/TexturePaths.h"

#include "studio/app/StatusMessage.h"
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QProgressDialog>

namespace studio {
namespace {

/// Events run only once the dialog keeps them off the window; small folders are searched before.
TextureSearch CancelledBy(QProgressDialog& progress)
{
    constexpr int kShowAfterMilliseconds = 400;
    QElapsedTimer elapsed;
    elapsed.start();
    TextureSearch search;
    search.cancelled = [&progress, elapsed] {
        if (elapsed.elapsed() > kShowAfterMilliseconds) {
            if (!progress.isVisible() && !progress.wasCanceled()) {
                progress.show();
            }
            QCoreApplication::processEvents();
        }
        return progress.wasCanceled();
    };
    return search;
}

}  // namespace

void MainWindow::FindTextures()
{
    if (MissingTexturePaths(m_scene.All()).empty()) {
        Tell(tr("No texture is missing."), CorvexMaterial::PromptIcon::Information);
        return;
    }
    const QStringList recent = m_recent.Files();
    const QString start = recent.isEmpty() ? QString() : QFileInfo(recent.front()).absolutePath();
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Folder to Search for Textures"), start);
    if (!folder.isEmpty()) {
        FindTexturesIn(folder);
    }
}

void MainWindow::FindTexturesIn(const QString& folder)
{
    QProgressDialog progress(tr("Searching %1...").arg(QFileInfo(folder).fileName()), tr("Cancel"),
                             0, 0, this);
    progress.setWindowTitle(QStringLiteral("Corvex"));
    progress.setWindowModality(Qt::WindowModal);
    const FoundTextures found = FindMissingTextures(MissingTexturePaths(m_scene.All()),
                                                    folder.toStdString(), CancelledBy(progress));
    if (progress.wasCanceled()) {
        return;
    }
    auto* dialog = new FindTexturesDialog(found, folder, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog] { ReplaceTextures(dialog->Chosen()); });
    dialog->open();
}

void MainWindow::ReplaceTextures(const std::vector<TextureReplacement>& chosen)
{
    m_link->Make(TextureChanges(m_scene.All(), chosen));
    m_misc->Show(chosen.size() == 1 ? tr("1 texture was replaced.")
                                    : tr("%1 textures were replaced.").arg(chosen.size()));
}

}  // namespace studio
