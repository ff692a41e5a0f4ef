#include "studio/app/StudioStyle.h"

#include <QPainterPath>
#include <QPixmap>
#include <QStyleFactory>
#include <QStyleOption>

namespace studio {
namespace {

void DrawTick(QPainter& painter, const QRectF& box, const QColor& colour)
{
    QPainterPath tick(QPointF(0.24, 0.54));
    tick.lineTo(0.43, 0.72);
    tick.lineTo(0.77, 0.30);
    painter.translate(box.topLeft());
    painter.scale(box.width(), box.height());
    painter.setPen(QPen(colour, 0.14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(tick);
}

void DrawBox(QPainter& painter, const QStyleOption& option)
{
    const bool marked = (option.state & (QStyle::State_On | QStyle::State_NoChange)) != 0;
    const bool lively = (option.state & (QStyle::State_HasFocus | QStyle::State_MouseOver)) != 0;
    const QPalette& colours = option.palette;
    const QColor accent = colours.color(QPalette::Highlight);
    const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(marked || lively ? accent : colours.color(QPalette::PlaceholderText));
    painter.setBrush(marked ? accent : colours.color(QPalette::Base));
    painter.drawRoundedRect(box, 2.5, 2.5);
    const QColor mark = colours.color(QPalette::HighlightedText);
    if ((option.state & QStyle::State_NoChange) != 0) {
        const qreal inset = box.width() * 0.25;
        painter.fillRect(
            QRectF(box.left() + inset, box.center().y() - 1.0, box.width() - 2.0 * inset, 2.0),
            mark);
    } else if (marked) {
        DrawTick(painter, box, mark);
    }
}

QPixmap DockButton(QStyle::StandardPixmap icon, const QColor& colour)
{
    constexpr qreal kScale = 4.0;
    constexpr int kSize = 16;
    QPixmap picture(QSize(kSize, kSize) * kScale);
    picture.setDevicePixelRatio(kScale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    if (icon == QStyle::SP_TitleBarCloseButton) {
        painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
        painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
    } else {
        painter.drawRect(QRectF(3.5, 6.5, 6.0, 6.0));
        painter.drawPolyline(QPolygonF({{6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}}));
    }
    return picture;
}

}  // namespace

StudioStyle::StudioStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void StudioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                QPainter* painter, const QWidget* widget) const
{
    if (element != PE_IndicatorCheckBox) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    painter->save();
    DrawBox(*painter, *option);
    painter->restore();
}

QIcon StudioStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const
{
    if (icon != SP_TitleBarCloseButton && icon != SP_TitleBarNormalButton) {
        return QProxyStyle::standardIcon(icon, option, widget);
    }
    return DockButton(icon, QApplication::palette().color(QPalette::WindowText));
}

}  // namespace studio
