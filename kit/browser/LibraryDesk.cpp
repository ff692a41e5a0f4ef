#include "LibraryDesk.h"

#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace studio {
namespace {

// Entries that another program deleted for good cannot come back; the rest does.
void BringBack(const LibraryEdit& change, LibraryFile& file)
{
    file.Restore(change.ids);
    const bool isAny =
        std::ranges::any_of(change.ids, [&](EntryId id) { return file.IndexOf(id).has_value(); });
    if (!isAny) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    LibraryDesk::tr("%1 was deleted for good from %2")
                                        .arg(change.ids.size() > 1
                                                 ? LibraryDesk::tr("Everything that was added")
                                                 : QString::fromStdString(change.name),
                                             QString::fromStdString(file.Path()))
                                        .toStdString());
    }
}

void Apply(const LibraryEdit& change, LibraryFile& file)
{
    switch (change.what) {
    case LibraryEdit::What::Add:
        BringBack(change, file);
        break;
    case LibraryEdit::What::Remove:
        file.Remove(change.ids);
        break;
    case LibraryEdit::What::Rename:
        file.Rename(change.ids.front(), change.name);
        break;
    case LibraryEdit::What::Describe: {
        std::vector<DescribedEntry> entries;
        for (std::size_t i = 0; i < change.ids.size(); ++i) {
            entries.push_back({change.ids[i], change.details[i]});
        }
        file.Describe(entries);
        break;
    }
    case LibraryEdit::What::Replace:
        file.Replace(change.ids.front(), change.contents->after);
        break;
    }
}

QString FileName(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).fileName();
}

QString Done(const LibraryEdit& change)
{
    const QString library = FileName(change.path);
    const bool several = change.ids.size() > 1;
    switch (change.what) {
    case LibraryEdit::What::Add:
        return (several ? LibraryDesk::tr("%1 entries are in %2 again.")
                        : LibraryDesk::tr("%1 is in %2 again."))
            .arg(change.Described(), library);
    case LibraryEdit::What::Remove:
        return (several ? LibraryDesk::tr("%1 entries were taken out of %2.")
                        : LibraryDesk::tr("%1 was taken out of %2."))
            .arg(change.Described(), library);
    case LibraryEdit::What::Describe:
        return (several ? LibraryDesk::tr("The properties of %1 entries of %2 were changed.")
                        : LibraryDesk::tr("The properties of %1 in %2 were changed."))
            .arg(change.Described(), library);
    case LibraryEdit::What::Replace:
        return LibraryDesk::tr("%1 was changed in %2.").arg(change.Described(), library);
    case LibraryEdit::What::Rename:
        break;
    }
    return LibraryDesk::tr("%1 is now called %2.")
        .arg(QString::fromStdString(change.before), QString::fromStdString(change.name));
}

}  // namespace

LibraryDesk::LibraryDesk(LibraryBrowsers& browsers, QObject* parent)
    : QObject(parent), m_browsers(browsers)
{
    connect(&browsers, &LibraryBrowsers::RenameWanted, this, &LibraryDesk::Rename);
    connect(&browsers, &LibraryBrowsers::Message, this, &LibraryDesk::Message);
    connect(&browsers, &LibraryBrowsers::FavouriteWanted, this, &LibraryDesk::ToggleFavourites);
    connect(&browsers, &LibraryBrowsers::RatingWanted, this, &LibraryDesk::Rate);
    connect(&browsers, &LibraryBrowsers::Used, this, &LibraryDesk::MarkUsed);
}

bool LibraryDesk::Reporting(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const CorvexMaterial::Error& error) {
        Q_EMIT Refused(QString::fromUtf8(error.what()));
        return false;
    }
}

void LibraryDesk::InOpen(LibraryKind kind, const std::function<void(LibraryFile&)>& work)
{
    if (LibraryFile* file = m_browsers.Open(kind); file != nullptr) {
        Reporting([&] { work(*file); });
    }
}

bool LibraryDesk::MakeStep(LibraryEdit change)
{
    const bool isMade = Make(change);
    if (isMade) {
        Push(std::move(change));
    }
    return isMade;
}

bool LibraryDesk::Replace(const EntryOrigin& entry, NewEntry after)
{
    std::optional<EntryReplacement> contents;
    Reporting([&] {
        LibraryFile file = LibraryFile::Open(entry.library, LibraryKind::Materials);
        contents = ReplacementOf(file, entry.id, std::move(after));
    });
    if (!contents) {
        return false;
    }
    LibraryEdit change{LibraryEdit::What::Replace,
                       LibraryKind::Materials,
                       entry.library,
                       {entry.id},
                       contents->after.name,
                       {}};
    change.contents = std::make_shared<EntryReplacement>(*std::move(contents));
    return MakeStep(std::move(change));
}

void LibraryDesk::Push(LibraryEdit change)
{
    m_history.push(
        new LibraryStep(std::move(change), [this](const LibraryEdit& step) { return Make(step); }));
}

void LibraryDesk::Record(LibraryKind kind, const LibraryChange& change)
{
    if (change.ids.empty()) {
        return;
    }
    Reporting([&] {
        LibraryFile* file = m_browsers.Open(kind);
        std::optional<LibraryFile> other;
        if (file != nullptr && file->Path() != change.path) {
            file = &other.emplace(LibraryFile::Open(change.path, kind));
        }
        const bool isNamed = file != nullptr && change.ids.size() == 1;
        Push({change.kind == LibraryChange::Kind::Added ? LibraryEdit::What::Add
                                                        : LibraryEdit::What::Remove,
              kind,
              change.path,
              change.ids,
              isNamed ? file->NameOf(change.ids.front()) : std::string(),
              {}});
        if (change.kind == LibraryChange::Kind::Added && change.ids.size() > 1) {
            const QString count = QLocale().toString(static_cast<qulonglong>(change.ids.size()));
            TellSoon(tr("Added %1 entries to %2.").arg(count, FileName(change.path)));
        }
        if (change.kind == LibraryChange::Kind::Added && isNamed) {
            const QString name = QString::fromStdString(file->NameOf(change.ids.front()));
            const auto collections = file->DetailsOf(change.ids.front()).collections;
            const QString where = QString::fromStdString(TextOfLabels(collections));
            TellSoon(where.isEmpty()
                         ? tr("Added %1 to %2.").arg(name, FileName(change.path))
                         : tr("Added %1 to %2, %3.").arg(name, FileName(change.path), where));
        }
        if (!other) {
            RevealSoon(kind, change.ids.back());
        }
    });
}

// The control says that the library is loaded, after every change of it.
void LibraryDesk::TellSoon(const QString& text)
{
    QMetaObject::invokeMethod(
        this, [this, text] { Q_EMIT Message(text + std::exchange(m_backup, {})); },
        Qt::QueuedConnection);
}

// The panel shows the library anew after its change, which undoes every marking.
void LibraryDesk::RevealSoon(LibraryKind kind, EntryId id)
{
    QMetaObject::invokeMethod(
        this,
        [this, kind, id] {
            const LibraryFile* file = m_browsers.Open(kind);
            const auto index = file != nullptr ? file->IndexOf(id) : std::nullopt;
            for (LibraryBrowser* browser : m_browsers.Of(kind)) {
                if (index) {
                    browser->Reveal(*index);
                }
            }
        },
        Qt::QueuedConnection);
}

// The step may be about another library than the one that is open by now.
bool LibraryDesk::Make(const LibraryEdit& change)
{
    return Reporting([&] {
        LibraryFile* open = m_browsers.Open(change.kind);
        if (open != nullptr && open->Path() == change.path) {
            Apply(change, *open);
            m_browsers.ShowAgain(change.kind, change.ids.back());
        } else {
            LibraryFile other = LibraryFile::Open(change.path, change.kind);
            other.SetBackupListener([this](const auto& backup) { TellBackup(backup); });
            Apply(change, other);
        }
        Q_EMIT Message(Done(change) + std::exchange(m_backup, {}));
    });
}

void LibraryDesk::Rename(LibraryKind kind, EntryId id, const QString& name)
{
    InOpen(kind, [&](LibraryFile& file) {
        if (const auto index = file.IndexOf(id)) {
            MakeStep({LibraryEdit::What::Rename,
                      kind,
                      file.Path(),
                      {id},
                      name.toStdString(),
                      file.NameAt(*index)});
        }
    });
}

void LibraryDesk::Describe(LibraryKind kind, const std::string& library,
                           const std::vector<DescribedEntry>& entries)
{
    InOpen(kind, [&](LibraryFile& file) {
        // Another may have been opened while the user thought about it.
        if (entries.empty() || file.Path() != library) {
            return;
        }
        LibraryEdit change{LibraryEdit::What::Describe, kind, file.Path(), {}, {}, {}};
        for (const DescribedEntry& entry : entries) {
            change.ids.push_back(entry.id);
            change.details.push_back(entry.details);
            change.detailsBefore.push_back(file.DetailsOf(entry.id));
        }
        change.name = file.NameOf(entries.front().id);
        MakeStep(std::move(change));
    });
}

void LibraryDesk::Collect(LibraryKind kind, const std::vector<EntryId>& ids,
                          const std::string& collection)
{
    InOpen(kind, [&](LibraryFile& file) {
        std::vector<DescribedEntry> entries;
        for (const EntryId id : ids) {
            EntryDetails details = file.DetailsOf(id);
            if (!HasLabel(details.collections, collection)) {
                details.collections.push_back(collection);
                details.collections = TidyLabels(details.collections);
                entries.push_back({id, std::move(details)});
            }
        }
        Describe(kind, file.Path(), entries);
    });
}

void LibraryDesk::Remove(LibraryKind kind, const std::vector<EntryId>& ids)
{
    InOpen(kind, [&](LibraryFile& file) {
        if (!ids.empty()) {
            MakeStep(
                {LibraryEdit::What::Remove, kind, file.Path(), ids, file.NameOf(ids.front()), {}});
        }
    });
}

void LibraryDesk::ToggleFavourites(LibraryKind kind, const std::vector<EntryId>& ids)
{
    InOpen(kind, [&](const LibraryFile& file) {
        if (file.IsInMemory()) {
            return;
        }
        const EntryMarks& marks = m_browsers.Marks().Of(file.Path());
        const bool areAll =
            std::ranges::all_of(ids, [&](EntryId id) { return MarkOf(marks, id).isFavourite; });
        m_browsers.Marks().SetFavourite(file.Path(), ids, !areAll);
        m_browsers.ShowMarks();
    });
}

void LibraryDesk::Rate(LibraryKind kind, const std::vector<EntryId>& ids, int rating)
{
    InOpen(kind, [&](const LibraryFile& file) {
        if (!file.IsInMemory()) {
            m_browsers.Marks().SetRating(file.Path(), ids, rating);
            m_browsers.ShowMarks();
        }
    });
}

void LibraryDesk::MarkUsed(const std::string& library, EntryId id)
{
    try {
        m_browsers.Marks().SetUsed(library, id);
    } catch (const CorvexMaterial::Error& error) {
        // Nothing that one has asked for.
        Q_EMIT Message(QString::fromUtf8(error.what()));
    }
}

void LibraryDesk::TellBackup(const std::string& backup)
{
    m_backup =
        tr(" Its file has a newer format now; the old one is kept as %1.").arg(FileName(backup));
}

void LibraryDesk::LookForChanges()
{
    m_browsers.Marks().Forget();
    for (const LibraryKind kind : {LibraryKind::Materials, LibraryKind::Textures}) {
        try {
            m_browsers.Refresh(kind);
        } catch (const CorvexMaterial::Error& error) {
            // No box: closing it would bring the window back, and that this about.
            Q_EMIT Message(QString::fromUtf8(error.what()));
        }
    }
}

void LibraryDesk::RenameSelected(LibraryKind kind)
{
    for (LibraryBrowser* browser : m_browsers.Of(kind)) {
        browser->EditName();
    }
}

std::int64_t LibraryDesk::TrashCount(LibraryKind kind)
{
    std::int64_t count = 0;
    InOpen(kind, [&](LibraryFile& file) { count = file.TrashCount(); });
    return count;
}

std::vector<TrashedEntry> LibraryDesk::Trash(LibraryKind kind, std::int32_t most)
{
    std::vector<TrashedEntry> entries;
    InOpen(kind, [&](LibraryFile& file) { entries = file.Trash(most); });
    return entries;
}

void LibraryDesk::Restore(LibraryKind kind, const TrashedEntry& entry)
{
    InOpen(kind, [&](const LibraryFile& file) {
        MakeStep({LibraryEdit::What::Add, kind, file.Path(), {entry.id}, entry.name, {}});
    });
}

void LibraryDesk::EmptyTrash(LibraryKind kind)
{
    InOpen(kind, [this](LibraryFile& file) {
        file.EmptyTrash();
        Q_EMIT Message(tr("The trash of %1 is empty.").arg(FileName(file.Path())));
    });
}

}  // namespace studio
