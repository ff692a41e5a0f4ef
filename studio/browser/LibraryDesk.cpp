#include "studio/browser/LibraryDesk.h"

#include "host/Status.h"

#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

void Apply(const LibraryEdit& change, LibraryFile& file)
{
    switch (change.what) {
    case LibraryEdit::What::Add:
        file.Restore(change.id);
        if (!file.IndexOf(change.id)) {
            throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                        change.name + " was deleted for good from " + file.Path());
        }
        break;
    case LibraryEdit::What::Remove:
        file.Remove(change.id);
        break;
    case LibraryEdit::What::Rename:
        file.Rename(change.id, change.name);
        break;
    }
}

QString Done(const LibraryEdit& change)
{
    const QString name = QString::fromStdString(change.name);
    const QString library = QFileInfo(QString::fromStdString(change.path)).fileName();
    switch (change.what) {
    case LibraryEdit::What::Add:
        return LibraryDesk::tr("%1 is in %2 again.").arg(name, library);
    case LibraryEdit::What::Remove:
        return LibraryDesk::tr("%1 was taken out of %2.").arg(name, library);
    case LibraryEdit::What::Rename:
        break;
    }
    return LibraryDesk::tr("%1 is now called %2.").arg(QString::fromStdString(change.before), name);
}

std::string NameOf(LibraryFile& file, EntryId id)
{
    if (const auto index = file.IndexOf(id)) {
        return file.NameAt(*index);
    }
    const std::vector<TrashedEntry> trash = file.Trash();
    const auto entry = std::ranges::find(trash, id, &TrashedEntry::id);
    return entry != trash.end() ? entry->name : std::string();
}

}  // namespace

LibraryDesk::LibraryDesk(LibraryBrowsers& browsers, QUndoStack& history, QObject* parent)
    : QObject(parent), m_browsers(browsers), m_history(history)
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

void LibraryDesk::Push(LibraryEdit change)
{
    m_history.push(
        new LibraryStep(std::move(change), [this](const LibraryEdit& step) { return Make(step); }));
}

void LibraryDesk::Record(LibraryKind kind, const LibraryChange& change)
{
    Reporting([&] {
        LibraryFile* file = m_browsers.Open(kind);
        const bool added = change.kind == LibraryChange::Kind::Added;
        std::vector<LibraryEdit> edits;
        for (const EntryId id : change.ids) {
            edits.push_back({added ? LibraryEdit::What::Add : LibraryEdit::What::Remove,
                             kind,
                             change.path,
                             id,
                             file != nullptr ? NameOf(*file, id) : std::string(),
                             {}});
        }
        PushAsOne(std::move(edits), added ? tr("Add to Library") : tr("Delete from Library"));
        if (!change.ids.empty()) {
            RevealSoon(kind, change.ids.back());
        }
    });
}

void LibraryDesk::PushAsOne(std::vector<LibraryEdit> edits, const QString& text)
{
    const bool several = edits.size() > 1;
    if (several) {
        m_history.beginMacro(text);
    }
    for (LibraryEdit& edit : edits) {
        Push(std::move(edit));
    }
    if (several) {
        m_history.endMacro();
    }
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
            m_browsers.ShowAgain(change.kind, change.id);
        } else {
            LibraryFile other = LibraryFile::Open(change.path, change.kind);
            Apply(change, other);
        }
        Q_EMIT Message(Done(change));
    });
}

void LibraryDesk::Rename(LibraryKind kind, EntryId id, const QString& name)
{
    Reporting([&] {
        LibraryFile* file = m_browsers.Open(kind);
        const auto index = file != nullptr ? file->IndexOf(id) : std::nullopt;
        if (!index) {
            return;
        }
        LibraryEdit change{LibraryEdit::What::Rename, kind, file->Path(), id, name.toStdString(),
                           file->NameAt(*index)};
        if (Make(change)) {
            Push(std::move(change));
        }
    });
}

void LibraryDesk::RenameSelected(LibraryKind kind)
{
    for (LibraryBrowser* browser : m_browsers.Of(kind)) {
        browser->EditName();
    }
}

std::vector<TrashedEntry> LibraryDesk::Trash(LibraryKind kind)
{
    std::vector<TrashedEntry> entries;
    Reporting([&] {
        if (LibraryFile* file = m_browsers.Open(kind); file != nullptr) {
            entries = file->Trash();
        }
    });
    return entries;
}

void LibraryDesk::Restore(LibraryKind kind, const TrashedEntry& entry)
{
    const LibraryFile* file = m_browsers.Open(kind);
    if (file == nullptr) {
        return;
    }
    LibraryEdit change{LibraryEdit::What::Add, kind, file->Path(), entry.id, entry.name, {}};
    if (Make(change)) {
        Push(std::move(change));
    }
}

void LibraryDesk::EmptyTrash(LibraryKind kind)
{
    Reporting([&] {
        if (LibraryFile* file = m_browsers.Open(kind); file != nullptr) {
            file->EmptyTrash();
            Q_EMIT Message(tr("The trash of %1 is empty.")
                               .arg(QFileInfo(QString::fromStdString(file->Path())).fileName()));
        }
    });
}

}  // namespace studio
