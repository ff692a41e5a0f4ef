#include "QtRegularFile.h"

#include "RegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QFile>
#include <QImageReader>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr qint64 kLeastPiece = 1 << 16;

[[noreturn]] void RefuseFile(const QString& path, const std::string& cause)
{
    throw Error(Status::FileFailed, path.toStdString() + ": " + cause + '.');
}

}  // namespace

std::string OpenRegular(QFile& file, std::int64_t mostBytes)
{
    RegularFile regular(file.fileName().toStdString(), mostBytes);
    if (!regular.Obstacle().empty()) {
        return regular.Obstacle();
    }
    return file.open(regular.Release(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)
               ? std::string()
               : file.errorString().toStdString();
}

QByteArray ReadRegular(const QString& path, std::int64_t mostBytes)
{
    QFile file(path);
    if (const std::string obstacle = OpenRegular(file, mostBytes); !obstacle.empty()) {
        RefuseFile(path, obstacle);
    }
    // The system's own files have no size, and some no end. Piece by piece, for room for the most
    // would be made at once.
    QByteArray bytes;
    QByteArray piece;
    do {
        const qint64 wanted = std::max(file.size() - bytes.size(), kLeastPiece);
        piece = file.read(std::min(wanted, mostBytes + 1 - bytes.size()));
        bytes += piece;
    } while (!piece.isEmpty() && bytes.size() <= mostBytes);
    if (bytes.size() > mostBytes) {
        RefuseFile(path, TooLongText(mostBytes));
    }
    if (file.error() != QFileDevice::NoError) {
        RefuseFile(path, file.errorString().toStdString());
    }
    return bytes;
}

QImage ReadPicture(const QString& path)
{
    QFile file(path);
    if (const std::string obstacle = OpenRegular(file, kMostPictureFileBytes); !obstacle.empty()) {
        RefuseFile(path, obstacle);
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    QImage picture = reader.read();
    if (picture.isNull()) {
        throw Error(Status::FileFailed,
                    path.toStdString() + ": " + reader.errorString().toStdString());
    }
    return picture;
}

}  // namespace CorvexMaterial
