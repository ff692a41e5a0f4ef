#include "LinkedEntry.h"

#include "DatabaseError.h"
#include "JsonFields.h"
#include "LibraryFile.h"
#include "LibraryReading.h"
#include "MaterialText.h"
#include "StoredPath.h"

#include <QJsonDocument>

namespace studio {
namespace {

using CorvexMaterial::UnknownFields;
using CorvexMaterial::WithUnknown;

std::optional<std::int32_t> IndexOf(LibraryFile& library, EntryId id, const std::string& name)
{
    if (const auto index = library.IndexOf(id)) {
        return index;
    }
    const std::vector<EntryId> named = library.IdsNamed(name);
    return named.empty() ? std::nullopt : library.IndexOf(named.front());
}

QJsonObject ObjectOf(const std::string& json)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
}

}  // namespace

LinkedEntry ReadLinkedEntry(LibraryFile& library, EntryId id, const std::string& name)
{
    const auto index = IndexOf(library, id, name);
    if (!index) {
        ThrowDatabaseError(library.Path(), "it has no entry \"" + name + "\" any more");
    }
    const EntryId found = library.IdAt(*index);
    return {{library.Path(), found, library.RevisionOf(found)},
            library.NameAt(*index),
            ReadMaterial(library, *index).material};
}

LinkedEntry ReadLinkedEntry(const std::string& library, EntryId id, const std::string& name)
{
    LibraryFile file = LibraryFile::Open(library, LibraryKind::Materials);
    return ReadLinkedEntry(file, id, name);
}

EntryReplacement ReplacementOf(LibraryFile& library, EntryId id, NewEntry after)
{
    const std::int32_t index = library.IndexOf(id).value_or(-1);
    const std::string json = library.JsonAt(index);
    NewEntry before =
        EntryOfMaterial({library.NameAt(index), ReadMaterial(library, index).material, {}},
                        FolderOf(library.Path()));
    before.json = json;
    before.png = library.ThumbnailAt(index);
    after.json = QJsonDocument(WithUnknown(ObjectOf(after.json), UnknownFields(ObjectOf(json))))
                     .toJson(QJsonDocument::Compact)
                     .toStdString();
    return {std::move(before), std::move(after)};
}

}  // namespace studio
