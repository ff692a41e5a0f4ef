#include "DocumentFile.h"

#include "ImportAllowance.h"
#include "QtRegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QStringDecoder>

namespace studio {

QByteArray ReadDocument(const std::string& path)
{
    return CorvexMaterial::ReadRegular(QString::fromStdString(path), kMostDocumentBytes);
}

ModelFile::ModelFile(const std::string& path) : m_file(QString::fromStdString(path))
{
    m_obstacle = CorvexMaterial::OpenRegular(m_file, kMostModelFileBytes);
    if (!m_obstacle.empty() || m_file.size() == 0) {
        return;
    }
    AllowTimeFor(m_file.size());
    const uchar* bytes = m_file.map(0, m_file.size());
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    m_text = {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(m_file.size())};
}

QByteArray ModelFile::Bytes() const
{
    return QByteArray::fromRawData(m_text.data(), static_cast<qsizetype>(m_text.size()));
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
