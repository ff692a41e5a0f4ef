#include "LibraryMenu.h"

#include "LibraryDesk.h"
#include "ShownText.h"

namespace studio {
namespace {

// A menu with more entries is of no use; what is older comes up when these are restored.
constexpr std::int32_t kMostShown = 20;

void ListTrash(QMenu& menu, LibraryDesk& desk, LibraryKind kind)
{
    menu.clear();
    const std::vector<TrashedEntry> entries = desk.Trash(kind, kMostShown);
    if (entries.empty()) {
        menu.addAction(LibraryMenu::tr("Nothing was deleted"))->setEnabled(false);
    }
    for (const TrashedEntry& entry : entries) {
        const QString name = QString::fromStdString(entry.name);
        menu.addAction(MenuCaption(name), &desk,
                       [&desk, kind, entry] { desk.Restore(kind, entry); });
    }
}

}  // namespace

LibraryMenu::LibraryMenu(LibraryDesk& desk, QWidget* parent)
    : QMenu(tr("&Library"), parent), m_desk(desk)
{
    setObjectName(QStringLiteral("libraryMenu"));
    addAction(tr("Choose or Create &Material Library..."), this, [this] {
        Q_EMIT ChooseLibrary(LibraryKind::Materials);
    })->setStatusTip(tr("Shows another material library on the panel"));
    addAction(tr("Choose or Create &Texture Library..."), this, [this] {
        Q_EMIT ChooseLibrary(LibraryKind::Textures);
    })->setStatusTip(tr("Shows another texture library on the panel"));
    addSeparator();
    addAction(tr("Re&name Selected Material"), this, [this] {
        m_desk.RenameSelected(LibraryKind::Materials);
    })->setStatusTip(tr("Names the entry that is marked in the material library"));
    addAction(tr("Rename &Selected Texture"), this, [this] {
        m_desk.RenameSelected(LibraryKind::Textures);
    })->setStatusTip(tr("Names the entry that is marked in the texture library"));
    addSeparator();
    AddTrash(*this, tr("Restore &Deleted Material"), m_desk, LibraryKind::Materials);
    AddTrash(*this, tr("Restore Deleted Te&xture"), m_desk, LibraryKind::Textures);
    connect(AddEmptyTrash(*this), &QAction::triggered, this, &LibraryMenu::EmptyTrashWanted);
}

QAction* LibraryMenu::AddEmptyTrash(QMenu& menu)
{
    QAction* empty = menu.addAction(tr("&Empty Trash..."));
    empty->setObjectName(QStringLiteral("emptyTrash"));
    empty->setStatusTip(tr("Removes for good what was deleted from the open libraries"));
    return empty;
}

void LibraryMenu::AddTrash(QMenu& menu, const QString& title, LibraryDesk& desk, LibraryKind kind)
{
    QMenu* trash = menu.addMenu(title);
    trash->menuAction()->setStatusTip(tr("Brings back what was deleted from the open library"));
    connect(trash, &QMenu::aboutToShow, &desk,
            [trash, &desk, kind] { ListTrash(*trash, desk, kind); });
}

}  // namespace studio
