#include "studio/browser/LibraryMenu.h"

#include "studio/browser/LibraryDesk.h"

namespace studio {
namespace {

// A menu with more entries is of no use; what is older comes up when these are restored.
constexpr std::size_t kMostShown = 20;

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
    AddTrash(tr("Restore &Deleted Material"), LibraryKind::Materials);
    AddTrash(tr("Restore Deleted Te&xture"), LibraryKind::Textures);
    addAction(tr("&Empty Trash..."), this, &LibraryMenu::EmptyTrashWanted)
        ->setObjectName(QStringLiteral("emptyTrash"));
}

void LibraryMenu::AddTrash(const QString& title, LibraryKind kind)
{
    QMenu* menu = addMenu(title);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, kind] { ListTrash(*menu, kind); });
}

void LibraryMenu::ListTrash(QMenu& menu, LibraryKind kind)
{
    menu.clear();
    std::vector<TrashedEntry> entries = m_desk.Trash(kind);
    if (entries.empty()) {
        menu.addAction(tr("Nothing was deleted"))->setEnabled(false);
    }
    entries.resize(std::min(entries.size(), kMostShown));
    for (const TrashedEntry& entry : entries) {
        const QString name = QString::fromStdString(entry.name);
        menu.addAction(QString(name).replace(u'&', QStringLiteral("&&")), this,
                       [this, kind, entry] { m_desk.Restore(kind, entry); });
    }
}

}  // namespace studio
