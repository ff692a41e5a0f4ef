#include "EntryMenu.h"

#include "LibraryBrowser.h"
#include "LibraryDesk.h"
#include "LibraryMenu.h"
#include "LibraryReading.h"
#include <CorvexMaterial/Status.h>

#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace studio {

EntryMenu::EntryMenu(LibraryBrowser& browser, LibraryDesk& desk, Place place)
    : QMenu(&browser), m_browser(browser), m_desk(desk)
{
    setObjectName(QStringLiteral("entryMenu"));
    AddEntryActions(place);
    if (place == Place::Panel) {
        addSeparator();
        AddTrashActions();
    }
}

void EntryMenu::AddEntryActions(Place place)
{
    const bool materials = m_browser.Kind() == LibraryKind::Materials;
    const LibraryFile* file = m_browser.File();
    const bool isMarked = file != nullptr && m_browser.SelectedIndex() >= 0;
    const bool mayChange = isMarked && file->ReadOnlyReason().empty();
    const auto add = [this](const QString& text, const QString& tip, const char* name, bool enabled,
                            auto&& act) {
        QAction* action = addAction(text, this, act);
        action->setStatusTip(tip);
        action->setObjectName(QLatin1String(name));
        action->setEnabled(enabled);
    };
    if (place == Place::Panel) {
        add(materials ? tr("&Apply to the Selection") : tr("&Use on the Current Channel"),
            materials ? tr("Gives the selected shapes this material")
                      : tr("Puts the image on the channel that is shown"),
            "chooseEntry", isMarked, [this] { m_browser.ChooseSelected(); });
    }
    add(tr("&Rename"), tr("Gives the entry another name"), "renameEntry", mayChange,
        [this] { m_browser.EditName(); });
    if (place == Place::Panel) {
        add(tr("&Delete"), tr("Puts the entry into the library's trash"), "deleteEntry", mayChange,
            [this] { m_browser.DeletePressed(); });
    }
    add(materials ? tr("Show &Library File") : tr("Show Image &File"), tr("Opens its folder"),
        "showFile", materials ? file != nullptr : isMarked, [this] { ShowFile(); });
}

void EntryMenu::AddTrashActions()
{
    LibraryMenu::AddTrash(*this, tr("Res&tore Deleted"), m_desk, m_browser.Kind());
    connect(LibraryMenu::AddEmptyTrash(*this), &QAction::triggered, this,
            &EntryMenu::EmptyTrashWanted);
}

// In the desktop's file manager: there it can be opened, copied or mailed with what is at hand.
void EntryMenu::ShowFile()
{
    try {
        LibraryFile* file = m_browser.File();
        if (file == nullptr) {
            return;
        }
        const std::string shown = m_browser.Kind() == LibraryKind::Materials
                                      ? file->Path()
                                      : ReadTexture(*file, m_browser.SelectedIndex());
        const QFileInfo info(QString::fromStdString(shown));
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(info.absolutePath()))) {
            Q_EMIT Message(tr("No file manager shows %1").arg(info.filePath()));
        }
    } catch (const CorvexMaterial::Error& error) {
        Q_EMIT Message(QString::fromUtf8(error.what()));
    }
}

}  // namespace studio
