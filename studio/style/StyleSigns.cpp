#include "StyleSigns.h"

#include <QIcon>
#include <QPainter>

namespace studio {
namespace {

constexpr int kSignSide = 16;

const QColor kWarning(0xE9, 0xB4, 0x4C);
const QColor kCritical(0xE5, 0x6A, 0x5E);

void Stroke(QPainter& painter, const QColor& colour, qreal width)
{
    painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void DrawClose(QPainter& painter, const QPalette& palette)
{
    Stroke(painter, palette.color(QPalette::WindowText), 1.4);
    painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
    painter.drawLine(QPointF(11.5, 4.5), QPointF(4.5, 11.5));
}

void DrawFloat(QPainter& painter, const QPalette& palette)
{
    Stroke(painter, palette.color(QPalette::WindowText), 1.4);
    painter.drawRect(QRectF(3.5, 6.5, 6.0, 6.0));
    painter.drawPolyline(QPolygonF({{6.5, 3.5}, {12.5, 3.5}, {12.5, 9.5}}));
}

void DrawDisc(QPainter& painter, const QColor& colour, const QPalette& palette)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    painter.setBrush(Qt::NoBrush);
    Stroke(painter, palette.color(QPalette::HighlightedText), 1.8);
}

void DrawInformation(QPainter& painter, const QPalette& palette)
{
    DrawDisc(painter, palette.color(QPalette::Highlight), palette);
    painter.drawPoint(QPointF(8, 4.7));
    painter.drawLine(QPointF(8, 7.6), QPointF(8, 11.6));
}

void DrawQuestion(QPainter& painter, const QPalette& palette)
{
    DrawDisc(painter, palette.color(QPalette::Highlight), palette);
    painter.drawArc(QRectF(5.6, 3.9, 4.8, 4.8), -70 * 16, 250 * 16);
    painter.drawLine(QPointF(8, 8.8), QPointF(8, 9.2));
    painter.drawPoint(QPointF(8, 12));
}

void DrawWarning(QPainter& painter, const QPalette& palette)
{
    painter.setBrush(kWarning);
    Stroke(painter, kWarning, 1.6);
    painter.drawPolygon(QPolygonF({{8, 2.2}, {14.4, 13.4}, {1.6, 13.4}}));
    Stroke(painter, palette.color(QPalette::HighlightedText), 1.6);
    painter.drawLine(QPointF(8, 6.2), QPointF(8, 9.4));
    painter.drawPoint(QPointF(8, 11.8));
}

void DrawCritical(QPainter& painter, const QPalette& palette)
{
    DrawDisc(painter, kCritical, palette);
    painter.drawLine(QPointF(5.6, 5.6), QPointF(10.4, 10.4));
    painter.drawLine(QPointF(10.4, 5.6), QPointF(5.6, 10.4));
}

void DrawArrow(QPainter& painter, const QPalette& palette, qreal degrees)
{
    Stroke(painter, palette.color(QPalette::ButtonText), 1.5);
    painter.translate(8, 8);
    painter.rotate(degrees);
    painter.drawLine(QPointF(-4.5, 0), QPointF(4.5, 0));
    painter.drawPolyline(QPolygonF({{-1, -3.8}, {-4.8, 0}, {-1, 3.8}}));
}

void DrawBack(QPainter& painter, const QPalette& palette)
{
    DrawArrow(painter, palette, 0);
}

void DrawForward(QPainter& painter, const QPalette& palette)
{
    DrawArrow(painter, palette, 180);
}

void DrawParent(QPainter& painter, const QPalette& palette)
{
    DrawArrow(painter, palette, 90);
}

void DrawNewFolder(QPainter& painter, const QPalette& palette)
{
    Stroke(painter, palette.color(QPalette::ButtonText), 1.3);
    painter.drawPolyline(QPolygonF(
        {{8, 12.5}, {1.8, 12.5}, {1.8, 3.5}, {6, 3.5}, {7.5, 5.2}, {14, 5.2}, {14, 7.2}}));
    painter.drawLine(QPointF(12, 9.2), QPointF(12, 14.4));
    painter.drawLine(QPointF(9.4, 11.8), QPointF(14.6, 11.8));
}

void DrawList(QPainter& painter, const QPalette& palette)
{
    Stroke(painter, palette.color(QPalette::ButtonText), 1.3);
    for (const QPointF corner :
         {QPointF(2.5, 2.5), QPointF(9.5, 2.5), QPointF(2.5, 9.5), QPointF(9.5, 9.5)}) {
        painter.drawRect(QRectF(corner, QSizeF(4, 4)));
    }
}

void DrawDetails(QPainter& painter, const QPalette& palette)
{
    Stroke(painter, palette.color(QPalette::ButtonText), 1.4);
    for (const qreal y : {3.5, 8.0, 12.5}) {
        painter.drawPoint(QPointF(2.5, y));
        painter.drawLine(QPointF(5.5, y), QPointF(13.5, y));
    }
}

struct SignRow {
    QStyle::StandardPixmap icon;
    void (*draw)(QPainter&, const QPalette&);
};

constexpr std::array kSigns{
    SignRow{QStyle::SP_TitleBarCloseButton, DrawClose},
    SignRow{QStyle::SP_TitleBarNormalButton, DrawFloat},
    SignRow{QStyle::SP_MessageBoxInformation, DrawInformation},
    SignRow{QStyle::SP_MessageBoxQuestion, DrawQuestion},
    SignRow{QStyle::SP_MessageBoxWarning, DrawWarning},
    SignRow{QStyle::SP_MessageBoxCritical, DrawCritical},
    SignRow{QStyle::SP_ArrowBack, DrawBack},
    SignRow{QStyle::SP_ArrowForward, DrawForward},
    SignRow{QStyle::SP_FileDialogToParent, DrawParent},
    SignRow{QStyle::SP_FileDialogNewFolder, DrawNewFolder},
    SignRow{QStyle::SP_FileDialogListView, DrawList},
    SignRow{QStyle::SP_FileDialogDetailedView, DrawDetails},
};

void AddSign(QIcon& icon, const SignRow& sign, const QPalette& palette, QIcon::Mode mode)
{
    for (const int size : {kSignSide, 2 * kSignSide, 4 * kSignSide, 8 * kSignSide}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(static_cast<qreal>(size) / kSignSide, static_cast<qreal>(size) / kSignSide);
        sign.draw(painter, palette);
        painter.end();
        icon.addPixmap(picture, mode);
    }
}

QIcon DrawnSign(const SignRow& sign, QPalette palette)
{
    QIcon icon;
    palette.setCurrentColorGroup(QPalette::Active);
    AddSign(icon, sign, palette, QIcon::Normal);
    palette.setCurrentColorGroup(QPalette::Disabled);
    AddSign(icon, sign, palette, QIcon::Disabled);
    return icon;
}

}  // namespace

std::optional<QIcon> StyleSign(QStyle::StandardPixmap icon, const QPalette& palette)
{
    for (const SignRow& sign : kSigns) {
        if (sign.icon == icon) {
            return DrawnSign(sign, palette);
        }
    }
    return std::nullopt;
}

}  // namespace studio
