#include "MaterialNaming.h"

#include "MaterialLink.h"
#include "MaterialNames.h"
#include "ScenePane.h"
#include "WindowMessages.h"

#include <QInputDialog>
#include <QMenu>

#include <algorithm>

namespace studio {

void MaterialNaming::AddTo(QMenu& menu)
{
    const auto add = [&](const QString& text, const QString& tip, auto&& act) {
        QAction* action = menu.addAction(text, this, act);
        action->setStatusTip(tip);
        m_parts.scene.EnableWithSelection(action);
        return action;
    };
    Selection& selection = m_parts.scene.Selected();
    QAction* apply =
        add(tr("Apply &to Selected"),
            tr("Gives all selected shapes the material of the one chosen last, which they share"),
            [this, &selection] { ApplyToSelected(*selection.Latest()); });
    connect(&selection, &Selection::Changed, apply,
            [apply, &selection] { apply->setEnabled(selection.All().size() > 1); });
    apply->setEnabled(selection.All().size() > 1);
    add(tr("Make Uni&que"), tr("Gives each selected shape a material of its own"),
        [this, &selection] { MakeUnique(selection.All()); });
    add(tr("Select All &With This Material"),
        tr("Selects all shapes that share a material with the selected ones"),
        [this, &selection] { SelectSame(selection.All()); });
    add(tr("Rena&me Material..."), tr("Names the material for all shapes that share it"),
        [this] { AskForName(); });
}

void MaterialNaming::AskForName()
{
    const auto& identity = m_parts.scene.Selected().Latest()->Applied().identity;
    bool isAccepted = false;
    const QString name = QInputDialog::getText(
        &m_parts.window, tr("Rename Material"), tr("&Name:"), QLineEdit::Normal,
        identity == nullptr ? QString() : QString::fromStdString(identity->name), &isAccepted);
    if (isAccepted && !name.trimmed().isEmpty()) {
        Rename(m_parts.scene.Selected().All(), name.trimmed());
    }
}

void MaterialNaming::Rename(const ShapeList& shapes, const QString& name)
{
    m_parts.link.Make(RenamedMaterials(shapes, name.toStdString(), m_parts.scene.Scene().All()));
}

void MaterialNaming::ApplyToSelected(const StudioShape& wearer)
{
    m_parts.link.Share(wearer, m_parts.scene.Selected().All());
}

void MaterialNaming::SelectSame(const ShapeList& shapes)
{
    ShapeList sharers = Sharers(shapes, m_parts.scene.Scene().All());
    // What was chosen last stays that.
    std::rotate(sharers.begin(), sharers.begin() + std::ssize(shapes), sharers.end());
    m_parts.scene.Selected().Set(sharers);
}

void MaterialNaming::MakeUnique(const ShapeList& shapes)
{
    auto changes = MadeUnique(shapes, m_parts.scene.Scene().All());
    if (changes.empty()) {
        m_parts.messages.Show(tr("No other shape shares the material."));
        return;
    }
    m_parts.link.Make(std::move(changes));
}

}  // namespace studio
