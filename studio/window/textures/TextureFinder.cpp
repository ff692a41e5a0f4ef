#include "TextureFinder.h"

#include "FindTexturesDialog.h"
#include "MaterialLink.h"
#include "TexturePaths.h"
#include "WaitDialog.h"
#include "WindowMessages.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

namespace studio {

void TextureFinder::AddTo(QMenu& menu)
{
    QAction* find =
        menu.addAction(tr("Find Missin&g Textures..."), this, &TextureFinder::ChooseFolder);
    find->setObjectName(QStringLiteral("findTextures"));
    find->setStatusTip(tr("Looks in a folder for textures that are not where they were"));
}

void TextureFinder::ChooseFolder()
{
    if (MissingTexturePaths(m_parts.scene.All()).empty()) {
        m_parts.messages.Inform(tr("No texture is missing."));
        return;
    }
    const QString folder = QFileDialog::getExistingDirectory(
        &m_parts.window, tr("Folder to Search for Textures"), m_parts.startFolder());
    if (!folder.isEmpty()) {
        FindIn(folder);
    }
}

void TextureFinder::FindIn(const QString& folder)
{
    WaitDialog progress(tr("Searching %1...").arg(QFileInfo(folder).fileName()), &m_parts.window);
    TextureSearch search;
    search.cancelled = [&progress] { return progress.Cancelled(); };
    const FoundTextures found =
        FindMissingTextures(MissingTexturePaths(m_parts.scene.All()), folder.toStdString(), search);
    if (progress.wasCanceled()) {
        return;
    }
    auto* dialog = new FindTexturesDialog(found, folder, &m_parts.window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { Replace(dialog->Chosen()); });
    dialog->open();
}

void TextureFinder::Replace(const std::vector<TextureReplacement>& chosen)
{
    m_parts.link.Make(TextureChanges(m_parts.scene.All(), chosen));
    m_parts.messages.Show(chosen.size() == 1 ? tr("1 texture was replaced.")
                                             : tr("%1 textures were replaced.").arg(chosen.size()));
}

}  // namespace studio
