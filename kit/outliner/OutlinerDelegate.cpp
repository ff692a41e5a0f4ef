#include "OutlinerDelegate.h"

#include "FlagSigns.h"
#include "OutlinerModel.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

namespace studio {
namespace {

constexpr int kRoom = 6;  ///< above and below a row's text, together
constexpr int kFaintAlpha = 90;

/// What all of them say, else what is the ordinary.
FlagSign SignOf(int column, const ShapeList& shapes)
{
    if (column == OutlinerModel::kEye) {
        const bool hidden =
            std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().hidden; });
        return hidden ? FlagSign::Hidden : FlagSign::Shown;
    }
    const bool locked =
        std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().locked; });
    return locked ? FlagSign::Locked : FlagSign::Unlocked;
}

}  // namespace

OutlinerDelegate::OutlinerDelegate(const OutlinerModel& model, QObject* parent)
    : QStyledItemDelegate(parent), m_model(model)
{
}

void OutlinerDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (const AppliedMaterial* material = m_model.Swatch(index)) {
        const int side = option->fontMetrics.height();
        const qreal scale = option->widget == nullptr ? 1.0 : option->widget->devicePixelRatioF();
        QPixmap picture(QSize(side, side) * scale);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        DrawSwatch(painter, QRectF(0, 0, side, side), material->gathered->material);
        painter.end();
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = QSize(side, side);
        option->icon = QIcon(picture);
        option->icon.addPixmap(picture, QIcon::Selected);  // not tinted
    }
    if (m_model.LinkAt(index).isLinked) {
        // The sign has its place behind the text.
        option->text = option->fontMetrics.elidedText(option->text, Qt::ElideMiddle,
                                                      option->rect.width() -
                                                          2 * option->rect.height() - kRoom);
    }
    const ShapeList shapes = m_model.ShapesOf(index);
    const bool isHidden =
        std::ranges::all_of(shapes, [](const auto& shape) { return shape->Flags().hidden; });
    if (isHidden) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            option->palette.setColor(group, QPalette::Text,
                                     option->palette.color(QPalette::Disabled, QPalette::Text));
        }
    }
}

// At the end of the name; with a dot where the library has another one.
void OutlinerDelegate::PaintLink(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    const LinkMark link = m_model.LinkAt(index);
    if (!link.isLinked) {
        return;
    }
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QColor colour =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    QRectF area = option.rect;
    area.setLeft(area.right() - area.height());
    DrawFlag(painter, area.adjusted(3, 3, -3, -3), FlagSign::Linked, colour);
    if (link.isStale) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0xE8, 0x8A, 0x1A));
        painter.drawEllipse(QRectF(area.right() - 8, area.top() + 2, 7, 7));
        painter.restore();
    }
}

void OutlinerDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    if (index.column() < OutlinerModel::kEye) {
        PaintLink(*painter, option, index);
        return;
    }
    const FlagSign sign = SignOf(index.column(), m_model.ShapesOf(index));
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    QColor colour = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const bool isOrdinary = sign == FlagSign::Shown || sign == FlagSign::Unlocked;
    if (isOrdinary && !option.state.testFlag(QStyle::State_MouseOver)) {
        colour.setAlpha(kFaintAlpha);
    }
    DrawFlag(*painter, QRectF(option.rect).adjusted(2, 3, -2, -3), sign, colour);
}

QSize OutlinerDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return {QStyledItemDelegate::sizeHint(option, index).width(),
            option.fontMetrics.height() + kRoom};
}

}  // namespace studio
