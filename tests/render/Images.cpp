#include "Images.h"

namespace drawing {

std::string WriteImage(const QString& name, const QImage& image)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    EXPECT_TRUE(image.save(path)) << path.toStdString();
    return path.toStdString();
}

QImage ImageOf(int side, const std::function<QColor(double x, double y)>& colourAt)
{
    QImage image(side, side, QImage::Format_RGBA8888);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            image.setPixelColor(x, y, colourAt((x + 0.5) / side, (y + 0.5) / side));
        }
    }
    return image;
}

QImage FourColours()
{
    return ImageOf(64, [](double x, double y) {
        return y < 0.5 ? (x < 0.5 ? QColor(255, 0, 0) : QColor(0, 255, 0))
                       : (x < 0.5 ? QColor(0, 0, 255) : QColor(255, 255, 255));
    });
}

QImage Plain(QColor colour)
{
    return ImageOf(4, [colour](double, double) { return colour; });
}

}  // namespace drawing
