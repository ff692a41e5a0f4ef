#include "TourPictures.h"

#include "PictureFile.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>

namespace studio {
namespace {

constexpr int kSide = 512;
constexpr int kTiles = 8;
constexpr int kTile = kSide / kTiles;
constexpr int kGroove = 5;
constexpr quint32 kSeed = 20;

QImage Canvas(QColor ground, QSize size = {kSide, kSide})
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(ground);
    return image;
}

template <typename Draw>
void ForEachTile(Draw&& draw)
{
    QRandomGenerator random(kSeed);
    for (int row = 0; row < kTiles; ++row) {
        for (int column = 0; column < kTiles; ++column) {
            const QRectF tile(column * kTile + kGroove / 2.0, row * kTile + kGroove / 2.0,
                              kTile - kGroove, kTile - kGroove);
            draw(tile, random);
        }
    }
}

QImage Tiles()
{
    QImage image = Canvas(QColor(0xd8, 0xd0, 0xc0));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    ForEachTile([&](const QRectF& tile, QRandomGenerator& random) {
        const int hue = 185 + random.bounded(35);
        painter.setBrush(QColor::fromHsv(hue, 90 + random.bounded(90), 120 + random.bounded(110)));
        painter.drawRoundedRect(tile, 5, 5);
    });
    return image;
}

QImage Grooves()
{
    QImage image = Canvas(Qt::black);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    ForEachTile([&](const QRectF& tile, QRandomGenerator&) {
        QRadialGradient swelling(tile.center(), kTile * 0.72);
        swelling.setColorAt(0.0, Qt::white);
        swelling.setColorAt(1.0, QColor(0x90, 0x90, 0x90));
        painter.setBrush(swelling);
        painter.drawRoundedRect(tile, 6, 6);
    });
    return image;
}

QImage Polish()
{
    QImage image = Canvas(QColor(0x18, 0x18, 0x18));
    QPainter painter(&image);
    ForEachTile([&](const QRectF& tile, QRandomGenerator& random) {
        const int shine = random.bounded(2) == 0 ? 40 : 255;
        painter.fillRect(tile, QColor(shine, shine, shine));
    });
    return image;
}

QImage Leaves()
{
    QImage image = Canvas(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    ForEachTile([&](const QRectF& tile, QRandomGenerator& random) {
        painter.save();
        painter.translate(tile.center());
        painter.rotate(random.bounded(360));
        painter.setBrush(QColor::fromHsv(25 + random.bounded(75), 200, 150 + random.bounded(80)));
        painter.drawEllipse(QRectF(-kTile * 0.42, -kTile * 0.2, kTile * 0.84, kTile * 0.4));
        painter.restore();
    });
    return image;
}

QImage Surroundings()
{
    QImage image = Canvas(Qt::black, {2 * kSide, kSide});
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, kSide);
    sky.setColorAt(0.0, QColor(0x30, 0x60, 0xa8));
    sky.setColorAt(0.49, QColor(0xe6, 0xee, 0xf6));
    sky.setColorAt(0.51, QColor(0x6a, 0x58, 0x44));
    sky.setColorAt(1.0, QColor(0x24, 0x1c, 0x14));
    painter.fillRect(image.rect(), sky);
    QRadialGradient sun(QPointF(kSide * 0.62, kSide * 0.3), kSide * 0.12);
    sun.setColorAt(0.0, Qt::white);
    sun.setColorAt(0.5, QColor(255, 250, 220, 230));
    sun.setColorAt(1.0, QColor(255, 250, 220, 0));
    painter.fillRect(image.rect(), sun);
    painter.setBrush(QColor(0x2c, 0x34, 0x2c));
    painter.setPen(Qt::NoPen);
    for (int x = 0; x < 2 * kSide; x += 64) {
        painter.drawEllipse(QPointF(x + 20, kSide * 0.51), 46, 14 + x % 96 / 5);
    }
    return image;
}

QImage Fade()
{
    QImage image = Canvas(Qt::black);
    QPainter painter(&image);
    QLinearGradient gradient(0, 0, 0, kSide);
    gradient.setColorAt(0.15, Qt::white);
    gradient.setColorAt(0.85, QColor(0x10, 0x10, 0x10));
    painter.fillRect(image.rect(), gradient);
    return image;
}

QString Saved(const QImage& image, const QString& folder, const char* name)
{
    const QString path = folder + QLatin1Char('/') + QLatin1String(name);
    SavePicture(image, path, {PictureTypeOf(path)});
    return path;
}

}  // namespace

TourPictures PaintTourPictures(const QString& folder)
{
    return {Saved(Tiles(), folder, "tiles.png"),
            Saved(Leaves(), folder, "leaves.png"),
            Saved(Grooves(), folder, "grooves.png"),
            Saved(Polish(), folder, "polish.png"),
            Saved(Surroundings(), folder, "surroundings.png"),
            Saved(Fade(), folder, "fade.png")};
}

}  // namespace studio
