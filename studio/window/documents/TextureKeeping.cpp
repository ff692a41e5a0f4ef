#include "TextureKeeping.h"

#include "CollectedFiles.h"
#include "DocumentMenu.h"
#include "FileWork.h"
#include "MaterialLink.h"
#include "OpenDocument.h"
#include "ScenePane.h"
#include "TexturePaths.h"
#include "WindowMessages.h"

#include <QFileInfo>
#include <QMenu>

namespace studio {

TextureKeeping::TextureKeeping(const Parts& parts) : m_parts(parts)
{
    connect(&m_parts.document, &OpenDocument::MarkChanged, this, &TextureKeeping::ShowPlace);
}

void TextureKeeping::AddTo(QMenu& menu)
{
    m_inDocument = menu.addAction(tr("&Keep Textures in Document"), this, [this](bool isInside) {
        m_parts.document.SetTextures(isInside ? TexturePlace::Embedded : TexturePlace::Referenced);
    });
    m_inDocument->setCheckable(true);
    m_inDocument->setStatusTip(tr("Each save puts the textures into the document"));
    menu.addAction(tr("Co&llect Files..."), this, &TextureKeeping::Collect)
        ->setStatusTip(tr("Copies all textures into a folder beside the document"));
    ShowPlace();
}

void TextureKeeping::ShowPlace()
{
    if (m_inDocument != nullptr) {
        m_inDocument->setChecked(m_parts.document.Textures() == TexturePlace::Embedded);
    }
}

void TextureKeeping::Collect()
{
    OpenDocument& document = m_parts.document;
    if (document.Path().isEmpty() && !m_parts.documentMenu.SaveAs()) {
        return;
    }
    const QString folder = QFileInfo(document.Path()).absolutePath() + QStringLiteral("/Textures");
    const std::vector<std::string> files = TexturePathsOf(m_parts.scene.Scene().All());
    std::vector<TextureReplacement> collected;
    const bool isDone = m_parts.messages.Telling([&] {
        m_parts.work.Do(tr("Copying the textures..."),
                        [&] { collected = CollectFiles(files, folder.toStdString()); });
    });
    if (!isDone) {
        return;
    }
    if (!collected.empty()) {
        m_parts.link.Make(TextureChanges(m_parts.scene.Scene().All(), collected));
    }
    document.SetTextures(TexturePlace::Referenced);
    const std::size_t missing = MissingTexturePaths(m_parts.scene.Scene().All()).size();
    const QString told = collected.size() == 1
                             ? tr("1 texture is in %1 now.").arg(folder)
                             : tr("%1 textures are in %2 now.").arg(collected.size()).arg(folder);
    m_parts.messages.Show(missing == 0 ? told
                                       : told + tr(" Textures that are missing: %1.").arg(missing));
}

}  // namespace studio
