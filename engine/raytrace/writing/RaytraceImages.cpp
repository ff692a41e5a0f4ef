#include "RaytraceImages.h"

#include "PictureFile.h"
#include "QtRegularFile.h"
#include "Quoting.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

namespace studio {
namespace {

/// Names what a file holds, so that no other file, of the user or of an earlier scene that still
/// needs it, is ever replaced by it.
QByteArray DigestOf(const QImage& image)
{
    constexpr qsizetype kLetters = 16;
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const int number : {image.width(), image.height(), static_cast<int>(image.format())}) {
        hash.addData(QByteArray::number(number).append(' '));
    }
    const qsizetype rowBytes = qsizetype{image.width()} * image.depth() / 8;
    for (int y = 0; y < image.height(); ++y) {
        hash.addData(QByteArrayView(image.constScanLine(y), rowBytes));
    }
    return hash.result().toHex().left(kLetters);
}

}  // namespace

RaytraceImages::RaytraceImages(ImageReader reader, Lookup lookup, Place place)
    : m_reader(reader), m_lookup(std::move(lookup)), m_place(std::move(place))
{
}

TexturePointer RaytraceImages::TextureOf(const std::string& file) const
{
    return file.empty() || !m_lookup ? nullptr : m_lookup(file);
}

std::string_view RaytraceImages::OwnKind(const std::string& file) const
{
    if (m_reader.kindOf == nullptr || !IsPlainPath(file) ||
        !QDir::isAbsolutePath(QString::fromStdString(file))) {
        return {};
    }
    QFile opened(QString::fromStdString(file));
    if (!CorvexMaterial::OpenRegular(opened, CorvexMaterial::kMostPictureFileBytes).empty()) {
        return {};
    }
    return m_reader.kindOf(QString::fromStdString(file));
}

RaytraceImage RaytraceImages::ImageOf(const std::string& file)
{
    const auto [known, isNew] = m_byFile.try_emplace(file);
    if (isNew) {
        known->second = FoundOrSaved(file);
    }
    return known->second;
}

RaytraceImage RaytraceImages::FoundOrSaved(const std::string& file)
{
    const TexturePointer texture = TextureOf(file);
    if (texture == nullptr) {
        return {};
    }
    if (texture->error.empty()) {
        if (const std::string_view kind = OwnKind(file); !kind.empty()) {
            return {file, kind, texture->image.size()};
        }
    }
    return ImageOf(*texture);
}

RaytraceImage RaytraceImages::ImageOf(const Texture& drawn)
{
    const auto known = m_saved.find(drawn.id);
    if (known != m_saved.end()) {
        return known->second;
    }
    const QString name = QStringLiteral("texture-") + QString::fromLatin1(DigestOf(drawn.image)) +
                         QLatin1String(m_reader.savedSuffix);
    CorvexMaterial::MakeFolder(m_place.folder.toStdString());
    SavePicture(drawn.image, m_place.folder + u'/' + name,
                {m_reader.savedType, -1, m_place.lifetime});
    return m_saved
        .emplace(drawn.id, RaytraceImage{m_place.reference + name.toStdString(), m_reader.savedKind,
                                         drawn.image.size()})
        .first->second;
}

}  // namespace studio
