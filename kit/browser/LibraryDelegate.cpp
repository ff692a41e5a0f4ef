#include "LibraryDelegate.h"

#include "LibraryModel.h"
#include <CorvexMaterial/LegibleColours.h>

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace studio {
namespace {

constexpr int kMargin = 2;
constexpr int kLeastEditorWidth = 110;
constexpr int kLongestName = 200;

constexpr int kStarSide = 18;
constexpr qreal kRatingStep = 8.5;
const QColor kStarColour(0xF2, 0xB8, 0x2E);

QPainterPath StarIn(const QRectF& area)
{
    constexpr int kCorners = 10;
    constexpr double kInner = 0.45;
    QPolygonF star;
    for (int i = 0; i < kCorners; ++i) {
        const double radius = area.width() / 2 * (i % 2 == 0 ? 1.0 : kInner);
        const double angle = i * 2 * std::numbers::pi / kCorners;
        star << area.center() + QPointF(std::sin(angle), -std::cos(angle)) * radius;
    }
    QPainterPath path;
    path.addPolygon(star);
    path.closeSubpath();
    return path;
}

QFont NameFont(const QStyleOptionViewItem& option)
{
    QFont font = option.font;
    font.setPointSizeF(QFontInfo(font).pointSizeF() * 0.82);
    return font;
}

QRect NameArea(const QStyleOptionViewItem& option)
{
    const int height = QFontMetrics(NameFont(option)).height();
    return option.rect.adjusted(kMargin, option.rect.height() - height - 1, -kMargin, -1);
}

QRect PictureArea(const QStyleOptionViewItem& option)
{
    QRect area = option.rect.adjusted(kMargin, kMargin, -kMargin, 0);
    area.setBottom(NameArea(option).top() - 1);
    return area;
}

/// Names of a kind begin alike ("brass-brushed", "brass-brushed-bump"), so that a long one keeps
/// its last word if it can, and its end in any case.
QString ShortName(const QString& name, const QFontMetrics& metrics, int width)
{
    constexpr qsizetype kMostKept = 40;
    const auto separator =
        std::max({name.lastIndexOf(u' '), name.lastIndexOf(u'-'), name.lastIndexOf(u'_')});
    const QString lastWord = name.mid(separator + 1);
    for (qsizetype kept = std::min(separator, kMostKept); kept > 1; --kept) {
        const QString shorter = name.left(kept) + QChar(0x2026) + lastWord;
        if (metrics.horizontalAdvance(shorter) <= width) {
            return shorter;
        }
    }
    return metrics.elidedText(name, Qt::ElideMiddle, width);
}

}  // namespace

LibraryDelegate::LibraryDelegate(const LibraryModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

void LibraryDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    painter->save();
    PaintGround(*painter, option);
    PaintThumbnail(*painter, PictureArea(option), index.row());
    PaintMarks(*painter, option, m_model.Mark(index.row()));
    painter->setFont(NameFont(option));
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    painter->setPen(selected ? CorvexMaterial::StrongTextOn(m_background)
                             : CorvexMaterial::QuietTextOn(m_background));
    const QRect area = NameArea(option);
    const QString name = index.data().toString();
    const QFontMetrics metrics = painter->fontMetrics();
    const bool fits = metrics.horizontalAdvance(name) <= area.width();
    painter->drawText(area, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine,
                      fits ? name : ShortName(name, metrics, area.width()));
    painter->restore();
}

void LibraryDelegate::PaintGround(QPainter& painter, const QStyleOptionViewItem& option) const
{
    const bool selected = option.state.testFlag(QStyle::State_Selected);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    if (!selected && !hovered) {
        return;
    }
    QColor accent = option.palette.color(QPalette::Active, QPalette::Highlight);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(selected ? QPen(accent, 1.5) : QPen(Qt::NoPen));
    accent.setAlpha(selected ? 70 : 35);
    painter.setBrush(accent);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 4, 4);
}

void LibraryDelegate::PaintThumbnail(QPainter& painter, const QRect& area, int row) const
{
    const qreal scale = painter.device()->devicePixelRatioF();
    const int side = static_cast<int>(std::min(area.width(), area.height()) * scale);
    if (side <= 0) {
        return;
    }
    QPixmap picture = m_model.Thumbnail(row, side);
    picture.setDevicePixelRatio(scale);
    QRectF place(QPointF(), picture.deviceIndependentSize());
    place.moveCenter(QRectF(area).center());
    painter.drawPixmap(place.topLeft(), picture);
}

QRect LibraryDelegate::StarArea(const QRect& cell)
{
    return {cell.right() - kStarSide - 2, cell.top() + 2, kStarSide, kStarSide};
}

// A favourite wears its star always; under the pointer every entry shows where it is to be clicked.
void LibraryDelegate::PaintMarks(QPainter& painter, const QStyleOptionViewItem& option,
                                 const EntryMark& mark) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor edge(0, 0, 0, 150);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    if (mark.isFavourite || (hovered && m_model.HasMarks())) {
        const QRectF area = QRectF(StarArea(option.rect)).adjusted(2, 2, -2, -2);
        painter.setPen(
            QPen(mark.isFavourite ? edge : CorvexMaterial::StrongTextOn(m_background), 1));
        painter.setBrush(mark.isFavourite ? kStarColour : QColor(127, 127, 127, 90));
        painter.drawPath(StarIn(area));
    }
    const QRect name = NameArea(option);
    const qreal width = mark.rating * kRatingStep;
    painter.setPen(QPen(edge, 0.5));
    painter.setBrush(kStarColour);
    for (int star = 0; star < mark.rating; ++star) {
        const qreal left = option.rect.center().x() - width / 2 + star * kRatingStep;
        painter.drawPath(StarIn({left, name.top() - kRatingStep, kRatingStep, kRatingStep}));
    }
}

QWidget* LibraryDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                       const QModelIndex& /*index*/) const
{
    auto* editor = new QLineEdit(parent);
    editor->setFont(NameFont(option));
    editor->setMaxLength(kLongestName);
    editor->setAlignment(Qt::AlignHCenter);
    return editor;
}

// Wider than the entry, so that a name can be read while it is typed, and inside the view.
void LibraryDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                           const QModelIndex& /*index*/) const
{
    QRect area = NameArea(option);
    const int available = editor->parentWidget()->width();
    const QPoint centre = area.center();
    area.setWidth(std::min(std::max(area.width(), kLeastEditorWidth), available));
    area.setHeight(area.height() + 6);
    area.moveCenter(centre);
    area.moveLeft(std::clamp(area.left(), 0, std::max(available - area.width(), 0)));
    editor->setGeometry(area);
}

}  // namespace studio
