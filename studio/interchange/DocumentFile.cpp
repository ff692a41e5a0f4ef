#include "studio/interchange/DocumentFile.h"

#include "host/Status.h"
#include "platform/QtRegularFile.h"

#include <QFileInfo>
#include <QStringDecoder>

namespace studio {

QByteArray ReadDocument(const std::string& path)
{
    return CorvexMaterial::ReadRegular(QString::fromStdString(path), kMostDocumentBytes);
}

std::string FolderOfDocument(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).absolutePath().toStdString();
}

void RefuseDocument(const std::string& path, const std::string& cause)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, path + ": " + cause);
}

QString TextOfDocument(const QByteArray& bytes)
{
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

}  // namespace studio
