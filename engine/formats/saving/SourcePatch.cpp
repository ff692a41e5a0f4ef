#include "SourcePatch.h"

#include "DocumentFile.h"
#include "FileClaim.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFileInfo>

namespace studio {
namespace {

/// Beyond, size and time have to do.
constexpr std::int64_t kMostHashedBytes = 4 << 20;

/// Empty for a file that is large or missing.
QByteArray HashOf(const std::string& path)
{
    const QFileInfo info(QString::fromStdString(path));
    return info.isFile() && info.size() <= kMostHashedBytes
               ? QCryptographicHash::hash(ReadDocument(path), QCryptographicHash::Sha256)
               : QByteArray();
}

}  // namespace

void RefuseChanged(const std::string& path)
{
    RefuseDocument(path, QCoreApplication::translate(
                             "Interchange", "it is no longer the file that was opened. Open it "
                                            "again to save materials back into it.")
                             .toStdString());
}

void RequireOwnMaterials(const MaterialSource& source, std::size_t count)
{
    const std::size_t all = source.asRead.materials.size();
    if (count != all && count + 1 != all) {
        RefuseChanged(source.path);
    }
}

FileMark MarkOf(const std::string& path)
{
    return {path, CorvexMaterial::FileIdentity(path), HashOf(path)};
}

bool FileMark::StillHolds() const
{
    return CorvexMaterial::FileIdentity(path) == identity ||
           (!hash.isEmpty() && HashOf(path) == hash);
}

}  // namespace studio
