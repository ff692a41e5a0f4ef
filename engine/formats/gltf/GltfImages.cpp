#include "GltfImages.h"

#include "GltfBuffer.h"
#include "LastingPicture.h"
#include "QtRegularFile.h"
#include "TextureFile.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QUrl>

namespace studio {
namespace {

const char* MediaTypeOf(const QByteArray& head)
{
    if (head.startsWith("\x89PNG\r\n\x1a\n")) {
        return "image/png";
    }
    return head.startsWith("\xff\xd8\xff") ? "image/jpeg" : nullptr;
}

/// Empty when it is no image.
QByteArray AsPng(const std::string& file)
{
    constexpr ImageBounds kAnySize{1 << 14, 1LL << 30};
    const FileImage read = ReadTextureFile(file, kAnySize);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, "png");
    const auto form = read.hasAlpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
    return !read.image.isNull() && writer.write(read.image.convertToFormat(form)) ? bytes
                                                                                  : QByteArray();
}

}  // namespace

GltfImages::GltfImages(std::string folder, GltfBuffer* inside, CorvexMaterial::FileSet* files)
    : m_folder(std::move(folder)), m_inside(inside), m_files(files)
{
}

GltfImages::GltfImages(std::string folder, qsizetype images, qsizetype textures, bool makesFiles)
    : m_folder(std::move(folder)), m_firstImage(images), m_firstTexture(textures),
      m_makesFiles(makesFiles)
{
}

int GltfImages::Take(const std::string& file)
{
    const auto next = static_cast<int>(m_firstTexture + m_textures.size());
    const auto [entry, isNew] = m_indexes.try_emplace(file, next);
    if (isNew) {
        m_textures.append(QJsonObject{{"source", m_firstImage + m_images.size()}});
        m_images.append(ImageOf(file));
    }
    return entry->second;
}

QJsonObject GltfImages::Named(const std::string& file) const
{
    const QString path = QString::fromStdString(ReferenceTo(file, m_folder));
    return {{"uri", QString::fromLatin1(QUrl::toPercentEncoding(path, "/"))}};
}

QJsonObject GltfImages::ImageOf(const std::string& file) const
{
    constexpr qint64 kHead = 16;
    QFile opened(QString::fromStdString(file));
    if (!CorvexMaterial::OpenRegular(opened, CorvexMaterial::kMostPictureFileBytes).empty()) {
        return Named(file);
    }
    const char* type = MediaTypeOf(opened.peek(kHead));
    if (!m_makesFiles || (type != nullptr && m_inside == nullptr)) {
        return Named(file);
    }
    const QByteArray bytes = type != nullptr ? opened.readAll() : AsPng(file);
    if (bytes.isEmpty()) {
        return Named(file);
    }
    const QString name = QFileInfo(QString::fromStdString(file)).completeBaseName();
    if (m_inside == nullptr) {
        return Named(StorePicture(bytes, name + QStringLiteral(".png"), m_folder, m_files));
    }
    return {{"bufferView", m_inside->Add(bytes)},
            {"mimeType", type != nullptr ? type : "image/png"},
            {"name", name}};
}

void GltfImages::AddTo(QJsonObject& document) const
{
    if (!m_images.isEmpty()) {
        document["images"] = m_images;
        document["textures"] = m_textures;
    }
}

}  // namespace studio
