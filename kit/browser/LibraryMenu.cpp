#include "LibraryMenu.h"

#include "LibraryDesk.h"
#include <CorvexMaterial/PlainText.h>

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
        menu.addAction(CorvexMaterial::PlainCaption(name), &desk,
                       [&desk, kind, entry] { desk.Restore(kind, entry); });
    }
}

}  // namespace

LibraryMenu::LibraryMenu(LibraryDesk& desk, QWidget* parent)
    : QMenu(tr("&Library"), parent), m_desk(desk)
{
    setObjectName(QStringLiteral("libraryMenu"));
    addAction(tr("Choose or Create &Material Library..."), this,
              [this] { Q_EMIT ChooseLibrary(LibraryKind::Materials); });
    addAction(tr("Choose or Create &Texture Library..."), this,
              [this] { Q_EMIT ChooseLibrary(LibraryKind::Textures); });
    addSeparator();
    addAction(tr("&Rename Selected Material"), this,
              [this] { m_desk.RenameSelected(LibraryKind::Materials); });
    addAction(tr("Rename &Selected Texture"), this,
              [this] { m_desk.RenameSelected(LibraryKind::Textures); });
    addSeparator();
    AddTrash(*this, tr("Restore &Deleted Material"), m_desk, LibraryKind::Materials);
    AddTrash(*this, tr("Restore Deleted Te&xture"), m_desk, LibraryKind::Textures);
    addAction(tr("&Empty Trash..."), this, &LibraryMenu::EmptyTrashWanted)
        ->setObjectName(QStringLiteral("emptyTrash"));
}

void LibraryMenu::AddTrash(QMenu& menu, const QString& title, LibraryDesk& desk, LibraryKind kind)
{
    QMenu* trash = menu.addMenu(title);
    connect(trash, &QMenu::aboutToShow, &desk,
            [trash, &desk, kind] { ListTrash(*trash, desk, kind); });
}

}  // namespace studio
