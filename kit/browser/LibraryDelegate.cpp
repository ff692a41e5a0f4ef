#include "LibraryDelegate.h"

#include "LibraryModel.h"
#include <CorvexMaterial/LegibleColours.h>

#include <QApplication>
#include <QLineEdit>
#include <QPainter>

#include <algorithm>

namespace studio {
namespace {

constexpr int kMargin = 2;
constexpr int kLeastEditorWidth = 110;
constexpr int kLongestName = 200;

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
