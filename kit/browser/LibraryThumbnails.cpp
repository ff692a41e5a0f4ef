#include "LibraryThumbnails.h"

#include "LibraryFile.h"
#include "MaterialText.h"
#include <CorvexMaterial/Status.h>

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QRadialGradient>

namespace studio {
namespace {

constexpr int kMostBytes = 16 << 20;
// What stands in a library file is 128 pixels wide; anything far larger is not ours to decode.
constexpr int kMostStoredSide = 1024;

QImage Decoded(const std::string& png)
{
    if (png.empty()) {
        return {};  // the decoder would complain of it to the terminal
    }
    QByteArray bytes = QByteArray::fromRawData(png.data(), static_cast<qsizetype>(png.size()));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    const bool usable = size.width() <= kMostStoredSide && size.height() <= kMostStoredSide;
    return usable ? reader.read() : QImage();
}

QColor ColourOf(LibraryFile& file, std::int32_t index)
{
    if (file.Kind() != LibraryKind::Materials) {
        return Qt::gray;
    }
    const std::string json = file.JsonAt(index);
    try {
        const auto bytes = CorvexMaterial::BytesOf(MaterialOfJson(json, {}).material.Color);
        return {bytes.red, bytes.green, bytes.blue};
    } catch (const CorvexMaterial::Error&) {
        // Choosing it tells what is damaged; here it would be told at every paint.
        return Qt::gray;
    }
}

// A ball of the material's colour, as good as it gets without a renderer.
QPixmap DrawnBall(const QColor& colour, int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side, side);
    QRadialGradient light(QPointF(0.5, 0.5), 0.45, QPointF(0.36, 0.34));
    light.setColorAt(0.0, colour.lighter(135));
    light.setColorAt(1.0, colour.darker(190));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0.5, 0.5), 0.42, 0.42);
    return picture;
}

// The frame of a picture that is not there.
QPixmap DrawnFrame(int side)
{
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side, side);
    painter.setPen(QPen(Qt::gray, 0.03));
    painter.drawRoundedRect(QRectF(0.12, 0.12, 0.76, 0.76), 0.06, 0.06);
    painter.drawLine(QPointF(0.12, 0.88), QPointF(0.88, 0.12));
    return picture;
}

}  // namespace

LibraryThumbnails::LibraryThumbnails() : m_pictures(kMostBytes) {}

void LibraryThumbnails::Forget(std::int64_t id)
{
    for (const Key& key : m_pictures.keys()) {
        if (key.first == id) {
            m_pictures.remove(key);
        }
    }
}

LibraryThumbnails::Picture LibraryThumbnails::Get(LibraryFile& file, std::int32_t index, int side)
{
    const Key key(file.IdAt(index), side);
    if (const Picture* known = m_pictures.object(key)) {
        return *known;
    }
    QPixmap picture;
    const QImage stored = Decoded(file.ThumbnailAt(index));
    if (!stored.isNull()) {
        picture = QPixmap::fromImage(
            stored.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    } else {
        picture = file.Kind() == LibraryKind::Materials ? DrawnBall(ColourOf(file, index), side)
                                                        : DrawnFrame(side);
    }
    const Picture drawn{picture, !stored.isNull()};
    m_pictures.insert(key, new Picture(drawn), picture.width() * picture.height() * 4);
    return drawn;
}

}  // namespace studio
