#include "OptionsEditing.h"

#include "DocumentBackup.h"
#include "LibraryBrowsers.h"
#include "MaterialText.h"
#include "OptionsDialog.h"
#include "PanelDock.h"
#include "ScenePane.h"
#include "SettingNames.h"
#include "StudioApplicationState.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "WindowMessages.h"

#include <QMenu>

namespace studio {

void OptionsEditing::AddTo(QMenu& menu)
{
    menu.addAction(tr("&Options..."), QKeySequence(tr("Ctrl+,")), this, &OptionsEditing::ShowDialog)
        ->setStatusTip(tr("Theme, colors, navigation, folders, raytracers, documents and fields"));
}

void OptionsEditing::ShowDialog()
{
    auto* dialog = new OptionsDialog(m_parts.host.Settings(), m_parts.processes, m_parts.choosers,
                                     &m_parts.window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->ShowBackupFolder(QString::fromStdString(
        BackupFolder(m_parts.host.State().Profile().stateFolder.toStdString())));
    connect(dialog, &OptionsDialog::ThemeShown, this, &OptionsEditing::ThemeWanted);
    connect(dialog, &QDialog::rejected, this,
            [this] { Q_EMIT ThemeWanted(m_parts.host.Settings().Number(kThemeSetting, 0)); });
    connect(dialog, &OptionsDialog::ColoursTried, &m_parts.panel, &PanelDock::ShowColours);
    connect(dialog, &QDialog::rejected, &m_parts.panel, &PanelDock::ApplyColours);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        m_parts.messages.Telling([dialog] { dialog->Store(); });
        m_parts.panel.ApplyColours();
        m_parts.scene.ApplyNavigation();
        m_parts.panel.Panel().UpdateCustomFieldNames();
        if (dialog->Moves() != kNoFieldMoves) {
            MoveFieldValues(dialog->Moves());
        }
    });
    dialog->open();
}

void OptionsEditing::MoveFieldValues(const FieldMoves& moves)
{
    CorvexMaterial::Material& panel = m_parts.panel.Panel();
    if (const auto shown = panel.ShownMaterial(); shown != nullptr) {
        CorvexDB::udtMaterial moved = shown->material;
        MoveFields(moved, moves);
        m_parts.messages.Check(panel.CopyFieldToFormMaterial(moved),
                               tr("The values were not moved"));
    }
    m_parts.messages.Telling([&] {
        LibraryFile* library = m_parts.host.Browsers().Open(LibraryKind::Materials);
        if (library != nullptr && !library->IsInMemory()) {
            const FieldNames names = m_parts.host.Get().customFields.GetCustomMaterialFieldNames();
            library->EditContents([&moves, &names](const std::string& json) {
                return WithMovedFields(json, moves, names);
            });
        }
    });
    m_parts.panel.Link().Make(
        ChangesBy([&moves](CorvexDB::udtMaterial& material) { MoveFields(material, moves); },
                  m_parts.scene.Scene().All()));
}

}  // namespace studio
