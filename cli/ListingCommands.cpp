#include "CommandContext.h"
#include "LibraryCommandTable.h"
#include "MaterialDocument.h"

#include <QJsonDocument>

#include <algorithm>

namespace studio {
namespace {

void RefuseName(CommandContext& context, const QString& name, const QString& place)
{
    context.output.Problem(
        QStringLiteral("%1: %2 has no entry \"%3\".").arg(context.job.library, place, name));
}

// A name may have been given twice, or in two cases.
void KeepEachOnce(std::vector<EntryId>& ids)
{
    std::ranges::sort(ids);
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
}

std::vector<EntryId> NamedIds(LibraryFile& library, CommandContext& context)
{
    std::vector<EntryId> ids;
    for (const QString& name : context.job.operands) {
        const auto named = library.IdsNamed(name.toStdString());
        if (named.empty()) {
            RefuseName(context, name, QStringLiteral("the library"));
        }
        ids.insert(ids.end(), named.begin(), named.end());
    }
    KeepEachOnce(ids);
    return ids;
}

}  // namespace

void CreateCommand(CommandContext& context)
{
    LibraryFile::Create(context.job.library.toStdString(), KindIn(context.job));
}

void ListCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    UserMarks own = OwnMarks();
    const EntryMarks& marks = own.Of(library.Path());
    ForEachSelected(library, context, [&](std::int32_t index) {
        const QString name = QString::fromStdString(library.NameAt(index));
        const EntryId id = library.IdAt(index);
        QJsonObject json{{"index", index}, {"id", qint64{id}}, {"name", name}};
        AddDetails(json, library.DetailsOf(id));
        const EntryMark mark = MarkOf(marks, id);
        if (mark.isFavourite) {
            json["favourite"] = true;
        }
        if (mark.rating > 0) {
            json["rating"] = mark.rating;
        }
        const std::string text = library.JsonAt(index);
        json["entry"] = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
        const QString file = json["entry"].toObject().value("file").toString();
        context.output.Result(json, file.isEmpty() ? QStringList{name} : QStringList{name, file});
    });
}

void SetCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    const EntryChanges& changes = context.job.changes;
    std::vector<EntryId> ids = NamedIds(library, context);
    if (!context.job.query.isEmpty()) {
        std::vector<EntryId> found;
        for (const std::int32_t index : SelectedIn(library, context.job)) {
            found.push_back(library.IdAt(index));
        }
        // Names and a search: what is both.
        std::erase_if(found, [&](EntryId id) {
            return !context.job.operands.isEmpty() && !std::ranges::binary_search(ids, id);
        });
        ids = std::move(found);
    }
    if (changes.AreOfTheLibrary() && !ids.empty()) {
        std::vector<DescribedEntry> entries;
        for (const EntryId id : ids) {
            entries.push_back({id, library.DetailsOf(id)});
            Apply(changes, entries.back().details);
        }
        library.Describe(entries);
    }
    UserMarks own = OwnMarks();
    if (changes.favourite) {
        own.SetFavourite(library.Path(), ids, *changes.favourite);
    }
    if (changes.rating) {
        own.SetRating(library.Path(), ids, *changes.rating);
    }
    context.output.Result({{"set", static_cast<int>(ids.size())}},
                          {CountText("Entries changed: %n.", ids.size())});
}

void RemoveCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    const std::vector<EntryId> ids = NamedIds(library, context);
    library.Remove(ids);
    context.output.Result({{"removed", static_cast<int>(ids.size())}}, {});
}

void RestoreCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    const auto trash = library.Trash();
    std::vector<EntryId> ids;
    for (const QString& name : context.job.operands) {
        const std::string folded = Folded(name.toStdString());
        const std::size_t before = ids.size();
        for (const TrashedEntry& entry : trash) {
            if (Folded(entry.name) == folded) {
                ids.push_back(entry.id);
            }
        }
        if (ids.size() == before) {
            RefuseName(context, name, QStringLiteral("the trash"));
        }
    }
    KeepEachOnce(ids);
    library.Restore(ids);
    context.output.Result({{"restored", static_cast<int>(ids.size())}}, {});
}

void TrashCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    for (const TrashedEntry& entry : library.Trash()) {
        const QString name = QString::fromStdString(entry.name);
        context.output.Result({{"id", qint64{entry.id}}, {"name", name}}, {name});
    }
}

void EmptyTrashCommand(CommandContext& context)
{
    OpenIn(context.job).EmptyTrash();
}

}  // namespace studio
