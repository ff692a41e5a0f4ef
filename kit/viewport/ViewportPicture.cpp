#include "ViewportPicture.h"

#include <QLinearGradient>
#include <QPainter>

#include <algorithm>

namespace studio {
namespace {

constexpr int kMessageMargin = 12;

QColor ColorOf(const EncodedColour& colour)
{
    return QColor::fromRgbF(colour[0], colour[1], colour[2]);
}

void PaintBackdrop(QPainter& painter, const QRect& area, const BackdropColours& colours)
{
    QLinearGradient gradient(area.topLeft(), area.bottomLeft());
    gradient.setColorAt(0.0, ColorOf(colours.top));
    gradient.setColorAt(1.0, ColorOf(colours.bottom));
    painter.fillRect(area, gradient);
}

}  // namespace

void ViewportPicture::ShowDrawn(const QImage& image)
{
    *this = {};
    m_image = image;
}

void ViewportPicture::ShowImage(const QImage& image)
{
    ShowDrawn(image);
    m_fit = Fit::Contain;
}

QRectF ViewportPicture::PlaceIn(const QRectF& area) const
{
    QSizeF size(m_image.size());
    if (m_fit == Fit::Contain) {
        size.scale(area.size(), Qt::KeepAspectRatio);
    } else {
        // The camera fits the smaller side of a picture, whatever its size.
        const double smaller = std::min(size.width(), size.height());
        size *= std::min(area.width(), area.height()) / smaller;
    }
    QRectF place({}, size);
    place.moveCenter(area.center());
    return place;
}

void ViewportPicture::Paint(QPainter& painter, const QRect& area,
                            const BackdropColours& backdrop) const
{
    if (!m_message.isEmpty() || m_image.isNull()) {
        PaintBackdrop(painter, area, backdrop);
        painter.setPen(ColorOf(backdrop.top).lightness() < 128 ? Qt::white : Qt::black);
        painter.drawText(
            area.marginsRemoved({kMessageMargin, kMessageMargin, kMessageMargin, kMessageMargin}),
            Qt::AlignCenter | Qt::TextWordWrap, m_message);
        return;
    }
    const QRectF place = PlaceIn(area);
    if (!place.contains(area)) {
        PaintBackdrop(painter, area, backdrop);
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_image);
}

}  // namespace studio
