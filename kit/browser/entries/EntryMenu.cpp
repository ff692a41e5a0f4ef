#include "EntryMenu.h"

#include "DetailsForm.h"
#include "LibraryBrowser.h"
#include "LibraryDesk.h"
#include "LibraryMenu.h"
#include "LibraryReading.h"
#include "PropertiesDialog.h"
#include "RatingText.h"
#include "ShownText.h"
#include <CorvexMaterial/Status.h>

#include <QDesktopServices>
#include <QFileInfo>
#include <QInputDialog>
#include <QUrl>

#include <algorithm>

namespace studio {

EntryMenu::EntryMenu(LibraryBrowser& browser, LibraryDesk& desk, Place place,
                     const QStringList& targets)
    : QMenu(&browser), m_browser(browser), m_desk(desk), m_ids(browser.SelectedIds())
{
    setObjectName(QStringLiteral("entryMenu"));
    AddEntryActions(place);
    if (place == Place::Panel) {
        AddTargets(!m_ids.empty(), targets);
    }
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
        if (materials) {
            add(tr("Apply Lin&ked"),
                tr("Gives it to the selected shapes, which can follow what the library makes of "
                   "it"),
                "linkEntry", isMarked && !file->IsInMemory(), [this] { Q_EMIT LinkWanted(); });
        }
    }
    add(tr("&Rename"), tr("Gives the entry another name"), "renameEntry", mayChange,
        [this] { m_browser.EditName(); });
    if (place == Place::Panel) {
        add(tr("&Delete"), tr("Puts the entry into the library's trash"), "deleteEntry", mayChange,
            [this] { m_browser.DeletePressed(); });
    }
    AddMarkActions(isMarked && !file->IsInMemory());
    AddDetailActions(mayChange);
    addSeparator();
    add(materials ? tr("Show &Library File") : tr("Show Image &File"), tr("Opens its folder"),
        "showFile", materials ? file != nullptr : isMarked, [this] { ShowFile(); });
}

// The user's own: also of a library that may only be read.
void EntryMenu::AddMarkActions(bool isMarked)
{
    addSeparator();
    const LibraryFile* file = m_browser.File();
    const EntryMarks none;
    const EntryMarks& marks = file != nullptr ? m_desk.Marks().Of(file->Path()) : none;
    const auto all = [&](auto&& is) {
        return isMarked &&
               std::ranges::all_of(m_ids, [&](EntryId id) { return is(MarkOf(marks, id)); });
    };
    QAction* favourite = addAction(tr("&Favourite") + QStringLiteral("\tCtrl+D"), this,
                                   [this] { m_desk.ToggleFavourites(m_browser.Kind(), m_ids); });
    favourite->setObjectName(QStringLiteral("favouriteEntry"));
    favourite->setStatusTip(tr("Your own mark, found with the filter beside the search"));
    favourite->setCheckable(true);
    favourite->setChecked(all([](const EntryMark& mark) { return mark.isFavourite; }));
    favourite->setEnabled(isMarked);
    QMenu* ratings = addMenu(tr("Ratin&g"));
    ratings->setEnabled(isMarked);
    for (int rating = kBestRating; rating >= 0; --rating) {
        const QString text = rating == 0 ? tr("&None") : RatingText(rating);
        QAction* rate =
            ratings->addAction(text + QStringLiteral("\tCtrl+%1").arg(rating), this,
                               [this, rating] { m_desk.Rate(m_browser.Kind(), m_ids, rating); });
        rate->setCheckable(true);
        rate->setChecked(all([rating](const EntryMark& mark) { return mark.rating == rating; }));
    }
}

void EntryMenu::AddDetailActions(bool mayChange)
{
    addSeparator();
    QMenu* collections = addMenu(tr("Add to &Collection"));
    collections->setObjectName(QStringLiteral("entryCollections"));
    collections->setEnabled(mayChange);
    connect(collections, &QMenu::aboutToShow, this,
            [this, collections] { AddCollections(*collections); });
    QAction* tags = addAction(tr("&Tags..."), this, [this] { ShowProperties(Focus::Tags); });
    tags->setStatusTip(tr("Words to find the entry by"));
    QAction* properties =
        addAction(tr("&Properties..."), this, [this] { ShowProperties(Focus::First); });
    properties->setObjectName(QStringLiteral("entryPropertiesAction"));
    properties->setStatusTip(tr("Tags, collections, author, licence and source"));
    tags->setEnabled(mayChange);
    properties->setEnabled(mayChange);
}

void EntryMenu::AddTargets(bool isMarked, const QStringList& targets)
{
    QMenu* copy = addMenu(tr("Copy to &Library"));
    copy->setObjectName(QStringLiteral("copyEntries"));
    const LibraryFile* file = m_browser.File();
    for (const QString& target : targets) {
        if (file != nullptr && target.toStdString() != file->Path()) {
            copy->addAction(MenuCaption(QFileInfo(target).fileName()), this,
                            [this, target] { Q_EMIT CopyWanted(m_ids, target); });
        }
    }
    copy->setEnabled(isMarked && !copy->isEmpty());
}

void EntryMenu::AddCollections(QMenu& menu)
{
    menu.clear();
    if (LibraryFile* file = m_browser.File(); file != nullptr) {
        for (const QString& name : DetailChoices::Of(*file).labels[LabelKind::Collection]) {
            menu.addAction(MenuCaption(name), this, [this, name] {
                m_desk.Collect(m_browser.Kind(), m_ids, name.toStdString());
            });
        }
    }
    menu.addSeparator();
    menu.addAction(tr("&New Collection..."), this, &EntryMenu::CollectAnew);
}

void EntryMenu::CollectAnew()
{
    bool isWanted = false;
    const QString name = QInputDialog::getText(m_browser.window(), tr("New Collection"),
                                               tr("&Name:"), QLineEdit::Normal, {}, &isWanted)
                             .simplified();
    if (isWanted && !name.isEmpty()) {
        m_desk.Collect(m_browser.Kind(), m_ids, name.toStdString());
    }
}

void EntryMenu::ShowProperties(Focus focus)
{
    LibraryFile* file = m_browser.File();
    if (file == nullptr || m_ids.empty()) {
        return;
    }
    try {
        std::vector<DescribedEntry> entries;
        for (const EntryId id : m_ids) {
            entries.push_back({id, file->DetailsOf(id)});
        }
        auto* dialog =
            new PropertiesDialog(QString::fromStdString(file->NameOf(m_ids.front())),
                                 std::move(entries), DetailChoices::Of(*file), m_browser.window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        if (focus == Focus::Tags) {
            dialog->FocusTags();
        }
        const std::string path = file->Path();
        connect(dialog, &QDialog::accepted, &m_desk,
                [dialog, path, &desk = m_desk, kind = m_browser.Kind()] {
                    desk.Describe(kind, path, dialog->Changed());
                });
        dialog->open();
    } catch (const CorvexMaterial::Error& error) {
        Q_EMIT Message(QString::fromUtf8(error.what()));
    }
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
