#include "LibrarySchema.h"

#include "Database.h"
#include "DatabaseError.h"
#include "DatabaseKind.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace studio {
namespace {

// The wide texts and the pictures stand apart, so that listing and searching read little.
constexpr std::array kObjects{
    "CREATE TABLE entries (id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, "
    "folded TEXT NOT NULL, trashed INTEGER NOT NULL DEFAULT 0, colour INTEGER, ambient INTEGER, "
    "emissive INTEGER, specular INTEGER, transparency INTEGER, doublesided INTEGER, "
    "alphatest INTEGER, layers INTEGER, raytraced INTEGER, width INTEGER, height INTEGER, "
    "plugin TEXT, files TEXT, fields TEXT) STRICT",
    "CREATE TABLE contents (entry INTEGER PRIMARY KEY, json TEXT NOT NULL) STRICT",
    "CREATE TABLE thumbnails (entry INTEGER PRIMARY KEY, png BLOB NOT NULL) STRICT",
    "CREATE INDEX entries_in_order ON entries (trashed)",
    "CREATE INDEX entries_by_name ON entries (folded)",
    "CREATE TABLE details (entry INTEGER PRIMARY KEY, author TEXT NOT NULL, "
    "licence TEXT NOT NULL, source TEXT NOT NULL) STRICT",
    "CREATE TABLE labels (kind INTEGER NOT NULL, folded TEXT NOT NULL, entry INTEGER NOT NULL, "
    "name TEXT NOT NULL, PRIMARY KEY (kind, folded, entry)) STRICT, WITHOUT ROWID",
    "CREATE INDEX labels_by_entry ON labels (entry)",
};
constexpr std::size_t kObjectsOfTheFirst = 5;

struct KindRow {
    LibraryKind kind;
    DatabaseKind database;
    const char* suffix;
    const char* refusal;  ///< of a file of this kind where the other is asked for
};

constexpr const char* kVersionStatement = "PRAGMA user_version = 2";
static_assert(kLibraryVersion == 2, "the statement above says it again");

constexpr std::array kKinds{
    KindRow{LibraryKind::Materials,
            {0x4376784D, kLibraryVersion, "library", "PRAGMA application_id = 0x4376784D",
             kVersionStatement, kObjects},
            "cvm",
            "it is a material library, not a texture library"},
    KindRow{LibraryKind::Textures,
            {0x43767854, kLibraryVersion, "library", "PRAGMA application_id = 0x43767854",
             kVersionStatement, kObjects},
            "cvt",
            "it is a texture library, not a material library"},
};

const KindRow& RowOf(LibraryKind kind)
{
    return kKinds.at(static_cast<std::size_t>(kind));
}

}  // namespace

const char* LibrarySuffix(LibraryKind kind)
{
    return RowOf(kind).suffix;
}

LibraryKind LibraryKindOf(const std::string& path)
{
    const QString suffix = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    return suffix == QLatin1String(LibrarySuffix(LibraryKind::Textures)) ? LibraryKind::Textures
                                                                         : LibraryKind::Materials;
}

void CheckLibraryHeader(const std::string& path, LibraryKind kind)
{
    const std::string cause = HeaderCause(path, RowOf(kind).database);
    if (cause.empty()) {
        return;
    }
    const std::uint32_t found = ApplicationIdOf(path);
    for (const KindRow& row : kKinds) {
        if (row.kind != kind && row.database.applicationId == found) {
            ThrowDatabaseError(path, row.refusal);
        }
    }
    ThrowDatabaseError(path, cause);
}

void MakeLibraryTables(Database& database, LibraryKind kind)
{
    MakeTables(database, RowOf(kind).database);
}

std::int64_t LibraryFormatOf(Database& database)
{
    return database.Integer("PRAGMA user_version");
}

void UpgradeLibraryTables(Database& database)
{
    for (const char* object : std::span(kObjects).subspan(kObjectsOfTheFirst)) {
        database.Run(object);
    }
    database.Run(kVersionStatement);
}

void CheckLibraryTables(Database& database)
{
    DatabaseKind kind = RowOf(LibraryKind::Materials).database;
    if (LibraryFormatOf(database) < kFormatWithDetails) {
        kind.objects = kind.objects.first(kObjectsOfTheFirst);
    }
    CheckTables(database, kind);
}

}  // namespace studio
