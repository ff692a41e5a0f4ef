#include "CommandContext.h"
#include "LibraryCommandTable.h"

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

}  // namespace

void CreateCommand(CommandContext& context)
{
    LibraryFile::Create(context.job.library.toStdString(), KindIn(context.job));
}

void ListCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    ForEachSelected(library, context, [&](std::int32_t index) {
        const QString name = QString::fromStdString(library.NameAt(index));
        QJsonObject json{{"index", index}, {"id", qint64{library.IdAt(index)}}, {"name", name}};
        const std::string text = library.JsonAt(index);
        json["entry"] = QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
        const QString file = json["entry"].toObject().value("file").toString();
        context.output.Result(json, file.isEmpty() ? QStringList{name} : QStringList{name, file});
    });
}

void RemoveCommand(CommandContext& context)
{
    LibraryFile library = OpenIn(context.job);
    std::vector<EntryId> ids;
    for (const QString& name : context.job.operands) {
        const auto named = library.IdsNamed(name.toStdString());
        if (named.empty()) {
            RefuseName(context, name, QStringLiteral("the library"));
        }
        ids.insert(ids.end(), named.begin(), named.end());
    }
    KeepEachOnce(ids);
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
