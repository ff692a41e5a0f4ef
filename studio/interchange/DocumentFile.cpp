#include "studio/interchange/DocumentFile.h"

#include "host/Status.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace studio {
namespace {

std::string DocumentText(const char* text)
{
    return QCoreApplication::translate("Interchange", text).toStdString();
}

}  // namespace

QByteArray ReadDocument(const std::string& path)
{
    const QString name = QString::fromStdString(path);
    QFile file(name);
    // A folder, or a pipe, which would keep its reader waiting.
    if (const QFileInfo info(name); info.exists() && !info.isFile()) {
        RefuseDocument(path, DocumentText("it is not a regular file."));
    }
    if (!file.open(QIODevice::ReadOnly)) {
        RefuseDocument(path, file.errorString().toStdString());
    }
    const QByteArray bytes = file.read(kMostDocumentBytes + 1);
    if (bytes.size() > kMostDocumentBytes) {
        RefuseDocument(path, DocumentText("it is too large."));
    }
    if (file.error() != QFileDevice::NoError) {
        RefuseDocument(path, file.errorString().toStdString());
    }
    return bytes;
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
