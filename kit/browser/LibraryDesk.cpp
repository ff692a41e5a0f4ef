#include "LibraryDesk.h"

#include <CorvexMaterial/Status.h>

#include <QFileInfo>

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

void LibraryDesk::MakeStep(LibraryEdit change)
{
    if (Make(change)) {
        Push(std::move(change));
    }
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
        const bool isNamed = file != nullptr && change.ids.size() == 1;
        Push({change.kind == LibraryChange::Kind::Added ? LibraryEdit::What::Add
                                                        : LibraryEdit::What::Remove,
              kind,
              change.path,
              change.ids,
              isNamed ? file->NameOf(change.ids.front()) : std::string(),
              {}});
        RevealSoon(kind, change.ids.back());
    });
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
            Apply(change, other);
        }
        Q_EMIT Message(Done(change));
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

void LibraryDesk::LookForChanges()
{
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
