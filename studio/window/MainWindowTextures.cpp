#include "FindTexturesDialog.h"
#include "MainWindow.h"
#include "StatusMessage.h"
#include "TexturePaths.h"
#include "WaitDialog.h"

#include <QFileDialog>
#include <QFileInfo>

namespace studio {

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
    WaitDialog progress(tr("Searching %1...").arg(QFileInfo(folder).fileName()), this);
    TextureSearch search;
    search.cancelled = [&progress] { return progress.Cancelled(); };
    const FoundTextures found =
        FindMissingTextures(MissingTexturePaths(m_scene.All()), folder.toStdString(), search);
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
