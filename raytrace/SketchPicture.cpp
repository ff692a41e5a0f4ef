#include "raytrace/SketchPicture.h"

#include <QPainter>

namespace CorvexMaterial {

namespace {

constexpr int kSide = 240;

}  // namespace

SketchPicture::SketchPicture(QWidget* parent) : QWidget(parent)
{
    setFixedSize(sizeHint());
}

QSize SketchPicture::sizeHint() const
{
    return {kSide, kSide};
}

int SketchPicture::PixelSide() const
{
    return static_cast<int>(kSide * devicePixelRatioF());
}

void SketchPicture::SetImage(const QImage& image)
{
    m_image = image;
    update();
}

void SketchPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), m_image);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace CorvexMaterial
