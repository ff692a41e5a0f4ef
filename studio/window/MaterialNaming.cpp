#include "MaterialNaming.h"

#include "MaterialLink.h"
#include "MaterialNames.h"
#include "ScenePane.h"
#include "WindowMessages.h"

#include <QInputDialog>
#include <QMenu>

namespace studio {

void MaterialNaming::AddTo(QMenu& menu)
{
    QAction* rename = menu.addAction(tr("Rena&me Material..."), this, &MaterialNaming::AskForName);
    rename->setStatusTip(tr("Names the material for all shapes that share it"));
    m_parts.scene.EnableWithSelection(rename);
    QAction* unique =
        menu.addAction(tr("Make Material Uni&que"), this, &MaterialNaming::MakeUnique);
    unique->setStatusTip(tr("Gives each selected shape a material of its own"));
    m_parts.scene.EnableWithSelection(unique);
}

void MaterialNaming::AskForName()
{
    const auto& identity = m_parts.scene.Selected().Latest()->Applied().identity;
    bool isAccepted = false;
    const QString name = QInputDialog::getText(
        &m_parts.window, tr("Rename Material"), tr("&Name:"), QLineEdit::Normal,
        identity == nullptr ? QString() : QString::fromStdString(identity->name), &isAccepted);
    if (isAccepted && !name.trimmed().isEmpty()) {
        Rename(name.trimmed());
    }
}

void MaterialNaming::Rename(const QString& name)
{
    m_parts.link.Make(RenamedMaterials(m_parts.scene.Selected().All(), name.toStdString(),
                                       m_parts.scene.Scene().All()));
}

void MaterialNaming::MakeUnique()
{
    auto changes = MadeUnique(m_parts.scene.Selected().All(), m_parts.scene.Scene().All());
    if (changes.empty()) {
        m_parts.messages.Show(tr("No other shape shares the material."));
        return;
    }
    m_parts.link.Make(std::move(changes));
}

}  // namespace studio
