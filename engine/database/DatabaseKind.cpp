#include "DatabaseKind.h"

#include "Database.h"
#include "DatabaseError.h"
#include "QtRegularFile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <algorithm>

namespace studio {
namespace {

constexpr qint64 kHeaderBytes = 100;
// A thousand times a library of 10,000 materials.
constexpr std::int64_t kMostDatabaseBytes = std::int64_t{100} << 30;

QByteArray HeaderOf(const QString& path)
{
    QFile file(path);
    const std::string obstacle = CorvexMaterial::OpenRegular(file, kMostDatabaseBytes);
    if (!obstacle.empty()) {
        ThrowDatabaseError(path.toStdString(), obstacle);
    }
    return file.read(kHeaderBytes);
}

std::uint32_t Word(const QByteArray& header, qsizetype offset)
{
    return qFromBigEndian<std::uint32_t>(header.constData() + offset);
}

bool IsDatabase(const QByteArray& header)
{
    return header.size() >= kHeaderBytes &&
           header.startsWith(QByteArray::fromRawData("SQLite format 3\0", 16));
}

std::uint32_t ApplicationIdIn(const QByteArray& header)
{
    return IsDatabase(header) ? Word(header, 68) : 0;
}

void RefuseShorter(const std::string& path, qint64 promised)
{
    const qint64 actual = QFileInfo(QString::fromStdString(path)).size();
    if (actual < promised) {
        ThrowDatabaseError(path, "it is truncated: " + std::to_string(actual) + " of " +
                                     std::to_string(promised) + " bytes are left");
    }
}

std::string VersionCause(std::uint32_t version, std::uint32_t known)
{
    return "it was made by a later version of the studio (format " + std::to_string(version) +
           "; this one reads up to " + std::to_string(known) + ")";
}

}  // namespace

std::string HeaderCause(const std::string& path, const DatabaseKind& kind)
{
    const QByteArray header = HeaderOf(QString::fromStdString(path));
    if (header.isEmpty()) {
        return "it is empty";
    }
    if (!IsDatabase(header)) {
        return std::string("it is not a ") + kind.name;
    }
    if (ApplicationIdIn(header) != kind.applicationId) {
        return "it belongs to another program";
    }
    const std::uint32_t version = Word(header, 60);
    if (version > kind.version) {
        return VersionCause(version, kind.version);
    }
    const bool hasLog = header.at(18) != 1 || header.at(19) != 1;
    if (hasLog) {
        return std::string("its header asks for a write-ahead log, which a ") + kind.name +
               " never has";
    }
    return version == 0 ? "its header is damaged" : "";
}

std::uint32_t ApplicationIdOf(const std::string& path)
{
    return ApplicationIdIn(HeaderOf(QString::fromStdString(path)));
}

void MakeTables(Database& database, const DatabaseKind& kind)
{
    database.Run(kind.applicationIdStatement);
    database.Run(kind.versionStatement);
    for (const char* object : kind.objects) {
        database.Run(object);
    }
}

void CheckTables(Database& database, const DatabaseKind& kind)
{
    Statement objects =
        database.Use("SELECT sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite\\_%' "
                     "ESCAPE '\\' ORDER BY rowid LIMIT 100");
    std::size_t found = 0;
    while (objects.Step()) {
        const std::string_view sql = objects.Text(0);
        if (std::ranges::find(kind.objects, sql) == kind.objects.end()) {
            ThrowDatabaseError(database.Path(),
                               std::string("its tables are not those of a ") + kind.name);
        }
        ++found;
    }
    if (found != kind.objects.size()) {
        ThrowDatabaseError(database.Path(),
                           std::string("tables of a ") + kind.name + " are missing");
    }
    // SQLite takes what is missing of the last page for zeros.
    RefuseShorter(database.Path(),
                  database.Integer("PRAGMA page_count") * database.Integer("PRAGMA page_size"));
}

void RefuseTruncated(const std::string& path)
{
    const QByteArray header = HeaderOf(QString::fromStdString(path));
    if (header.size() < kHeaderBytes) {
        return;
    }
    // A page size of 65536 does not fit and is stored as 1.
    const qint64 storedSize = qFromBigEndian<std::uint16_t>(header.constData() + 16);
    RefuseShorter(path, (storedSize == 1 ? 65536 : storedSize) * Word(header, 28));
}

}  // namespace studio
