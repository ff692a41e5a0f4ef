#include "LibrarySchema.h"

#include "Database.h"
#include "LibraryError.h"
#include "QtRegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <array>

namespace studio {
namespace {

struct KindRow {
    LibraryKind kind;
    std::uint32_t applicationId;
    const char* suffix;
    const char* applicationIdStatement;
    const char* refusal;  ///< of a file of this kind where the other is asked for
};

constexpr std::array kKinds{
    KindRow{LibraryKind::Materials, 0x4376784D, "cvm", "PRAGMA application_id = 0x4376784D",
            "it is a material library, not a texture library"},
    KindRow{LibraryKind::Textures, 0x43767854, "cvt", "PRAGMA application_id = 0x43767854",
            "it is a texture library, not a material library"},
};

const KindRow& RowOf(LibraryKind kind)
{
    return kKinds.at(static_cast<std::size_t>(kind));
}

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
};

constexpr qint64 kHeaderBytes = 100;
// A thousand times a library of 10,000 materials.
constexpr std::int64_t kMostLibraryBytes = std::int64_t{100} << 30;

QByteArray HeaderOf(const QString& path)
{
    QFile file(path);
    const std::string obstacle = CorvexMaterial::OpenRegular(file, kMostLibraryBytes);
    if (!obstacle.empty()) {
        ThrowLibraryError(path.toStdString(), obstacle);
    }
    return file.read(kHeaderBytes);
}

std::uint32_t Word(const QByteArray& header, qsizetype offset)
{
    return qFromBigEndian<std::uint32_t>(header.constData() + offset);
}

std::string ForeignCause(std::uint32_t applicationId)
{
    for (const KindRow& row : kKinds) {
        if (row.applicationId == applicationId) {
            return row.refusal;
        }
    }
    return "it belongs to another program";
}

std::string VersionCause(std::uint32_t version)
{
    return "it was made by a later version of the studio (format " + std::to_string(version) +
           "; this one reads up to " + std::to_string(kLibraryVersion) + ")";
}

// Empty if the header is that of a library.
std::string HeaderCause(const QByteArray& header, LibraryKind kind)
{
    if (header.isEmpty()) {
        return "it is empty";
    }
    if (header.size() < kHeaderBytes || !header.startsWith(QByteArray("SQLite format 3\0", 16))) {
        return "it is not a library";
    }
    const std::uint32_t applicationId = Word(header, 68);
    if (applicationId != RowOf(kind).applicationId) {
        return ForeignCause(applicationId);
    }
    const std::uint32_t version = Word(header, 60);
    if (version > kLibraryVersion) {
        return VersionCause(version);
    }
    const bool hasLog = header.at(18) != 1 || header.at(19) != 1;
    if (hasLog) {
        return "its header asks for a write-ahead log, which a library never has";
    }
    return version == 0 ? "its header is damaged" : "";
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
    const std::string cause = HeaderCause(HeaderOf(QString::fromStdString(path)), kind);
    if (!cause.empty()) {
        ThrowLibraryError(path, cause);
    }
}

void MakeLibraryTables(Database& database, LibraryKind kind)
{
    static_assert(kLibraryVersion == 1, "the statement below says it again");
    database.Run(RowOf(kind).applicationIdStatement);
    database.Run("PRAGMA user_version = 1");
    for (const char* object : kObjects) {
        database.Run(object);
    }
}

void CheckLibraryTables(Database& database)
{
    Statement objects =
        database.Use("SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite\\_%' "
                     "ESCAPE '\\' ORDER BY rowid LIMIT 100");
    std::size_t found = 0;
    while (objects.Step()) {
        const std::string_view sql = objects.Text(0);
        if (std::ranges::find(kObjects, sql) == kObjects.end()) {
            ThrowLibraryError(database.Path(), "its tables are not those of a library");
        }
        ++found;
    }
    if (found != kObjects.size()) {
        ThrowLibraryError(database.Path(), "tables of a library are missing");
    }
}

void RefuseTruncated(const std::string& path)
{
    const QString file = QString::fromStdString(path);
    const QByteArray header = HeaderOf(file);
    if (header.size() < kHeaderBytes) {
        return;
    }
    // A page size of 65536 does not fit and is stored as 1.
    const qint64 storedSize = qFromBigEndian<std::uint16_t>(header.constData() + 16);
    const qint64 promised = (storedSize == 1 ? 65536 : storedSize) * Word(header, 28);
    const qint64 actual = QFileInfo(file).size();
    if (actual < promised) {
        ThrowLibraryError(path, "it is truncated: " + std::to_string(actual) + " of " +
                                    std::to_string(promised) + " bytes are left");
    }
}

}  // namespace studio
