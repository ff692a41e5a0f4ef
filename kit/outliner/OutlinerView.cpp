#include "OutlinerView.h"

#include "FlagSigns.h"
#include "LibraryDrag.h"
#include "OutlinerDelegate.h"

#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace studio {
namespace {

/// A little below the pointer, so that it covers nothing that one aims at.
QPixmap DragPicture(const QWidget& widget, const QString& text,
                    const CorvexDB::udtMaterial* material)
{
    constexpr int kMargin = 4;
    const QFontMetrics metrics(widget.font());
    const int side = material == nullptr ? 0 : metrics.height();
    const QSize size(metrics.horizontalAdvance(text) + side + 3 * kMargin,
                     metrics.height() + 2 * kMargin);
    QPixmap picture(size * widget.devicePixelRatioF());
    picture.setDevicePixelRatio(widget.devicePixelRatioF());
    picture.fill(widget.palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    painter.setFont(widget.font());
    painter.setPen(widget.palette().color(QPalette::ToolTipText));
    if (material != nullptr) {
        DrawSwatch(painter, QRectF(kMargin, kMargin, side, side), *material);
    }
    painter.drawText(QRect(QPoint(side + 2 * kMargin, 0), size), Qt::AlignVCenter, text);
    return picture;
}

}  // namespace

OutlinerView::OutlinerView(OutlinerModel& model, QWidget* parent)
    : QTreeView(parent), m_model(model)
{
    setModel(&model);
    setItemDelegate(new OutlinerDelegate(model, this));
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    setTextElideMode(Qt::ElideMiddle);
    header()->setSortIndicatorClearable(true);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
    header()->setMinimumSectionSize(fontMetrics().height() + 8);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(OutlinerModel::kName, QHeaderView::Stretch);
    header()->setSectionResizeMode(OutlinerModel::kMaterial, QHeaderView::Interactive);
    for (const int column : {OutlinerModel::kEye, OutlinerModel::kLock}) {
        header()->setSectionResizeMode(column, QHeaderView::Fixed);
        header()->resizeSection(column, header()->minimumSectionSize());
    }
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, this, &OutlinerView::RememberOpened);
    connect(&model, &QAbstractItemModel::modelReset, this, &OutlinerView::OpenAgain);
}

void OutlinerView::RememberOpened()
{
    m_opened.clear();
    m_scrolled = verticalScrollBar()->value();
    for (int row = 0; row < m_model.rowCount(); ++row) {
        const QModelIndex index = m_model.index(row, 0);
        if (isExpanded(index)) {
            for (const auto& shape : m_model.ShapesOf(index)) {
                m_opened.insert(shape.get());
            }
        }
    }
}

void OutlinerView::OpenAgain()
{
    for (int row = 0; row < m_model.rowCount() && !m_opened.empty(); ++row) {
        const QModelIndex index = m_model.index(row, 0);
        if (m_model.IsMaterial(index) && m_opened.contains(m_model.ShapesOf(index).front().get())) {
            expand(index);
        }
    }
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(m_scrolled);
}

ShapeList OutlinerView::SelectedShapes() const
{
    std::vector<QModelIndex> rows;
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(m_model.index(row, 0, range.parent()));
        }
    }
    std::ranges::sort(rows, [](const QModelIndex& one, const QModelIndex& other) {
        return std::pair(one.parent().row(), one.row()) <
               std::pair(other.parent().row(), other.row());
    });
    ShapeList shapes;
    std::unordered_set<const StudioShape*> known;
    for (const QModelIndex& row : rows) {
        for (const auto& shape : m_model.ShapesOf(row)) {
            if (known.insert(shape.get()).second) {
                shapes.push_back(shape);
            }
        }
    }
    return shapes;
}

void OutlinerView::Toggle(const QModelIndex& index, int column)
{
    if (!index.isValid()) {
        return;
    }
    const bool isSelected = selectionModel()->isSelected(index.siblingAtColumn(0));
    const ShapeList shapes = isSelected ? SelectedShapes() : m_model.ShapesOf(index);
    const bool ShapeFlags::*const flag =
        column == OutlinerModel::kEye ? &ShapeFlags::hidden : &ShapeFlags::locked;
    const ShapeList pointed = m_model.ShapesOf(index);
    const bool areSet =
        std::ranges::all_of(pointed, [flag](const auto& shape) { return shape->Flags().*flag; });
    if (column == OutlinerModel::kEye) {
        Q_EMIT HiddenWanted(shapes, !areSet);
    } else {
        Q_EMIT LockedWanted(shapes, !areSet);
    }
}

void OutlinerView::EditName(const QModelIndex& index)
{
    const QModelIndex row = m_model.IsMaterial(index.parent()) ? index.parent() : index;
    for (int column = 0; column < OutlinerModel::kEye; ++column) {
        const QModelIndex cell = row.siblingAtColumn(column);
        if (cell.flags().testFlag(Qt::ItemIsEditable)) {
            scrollTo(cell);
            edit(cell);
        }
    }
}

void OutlinerView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    m_pressed = index;
    if (event->button() == Qt::LeftButton && index.column() >= OutlinerModel::kEye) {
        Toggle(index, index.column());
        return;
    }
    // A menu is about what is selected: whoever asks for that of a material keeps his shapes.
    const bool isSelected = selectionModel()->isSelected(index);
    if (event->button() == Qt::RightButton && (isSelected || m_model.IsMaterial(index))) {
        return;
    }
    QTreeView::mousePressEvent(event);
}

void OutlinerView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || index.column() >= OutlinerModel::kEye) {
        mousePressEvent(event);
    } else if (m_model.Swatch(index) != nullptr) {
        EditName(index);
    } else if (index.isValid()) {
        Q_EMIT FrameWanted(m_model.ShapesOf(index));
    }
}

void OutlinerView::keyPressEvent(QKeyEvent* event)
{
    if (state() == EditingState) {
        QTreeView::keyPressEvent(event);
    } else if (event->key() == Qt::Key_Space) {
        Toggle(currentIndex(), event->modifiers().testFlag(Qt::ShiftModifier)
                                   ? OutlinerModel::kLock
                                   : OutlinerModel::kEye);
    } else if (event->key() == Qt::Key_F2) {
        EditName(currentIndex());
    } else if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
               currentIndex().isValid()) {
        Q_EMIT FrameWanted(SelectedShapes());
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void OutlinerView::keyboardSearch(const QString& search)
{
    if (!search.trimmed().isEmpty()) {
        Q_EMIT SearchTyped(search);
    }
}

void OutlinerView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    const QModelIndex index = byMouse ? indexAt(event->pos()) : currentIndex();
    if (index.isValid()) {
        Q_EMIT MenuWanted(index, byMouse ? event->globalPos()
                                         : viewport()->mapToGlobal(visualRect(index).center()));
    }
}

void OutlinerView::startDrag(Qt::DropActions /*actions*/)
{
    if (!m_pressed.isValid()) {
        return;
    }
    const OutlinerMaterial* material =
        m_model.Swatch(m_pressed) == nullptr ? nullptr : m_model.MaterialAt(m_pressed);
    m_dragsMaterial = material != nullptr;
    m_dragged = m_dragsMaterial ? ShapeList{material->wearers.front()} : SelectedShapes();
    if (m_dragged.empty()) {
        return;
    }
    auto* drag = new QDrag(this);
    QString text = QString::fromStdString(m_dragged.front()->Name());
    if (m_dragsMaterial) {
        text = material->name;
        drag->setMimeData(
            DraggedMaterialData({text.toStdString(), m_dragged.front()->Material()}).release());
    } else {
        if (m_dragged.size() > 1) {
            text = tr("%Ln shape(s)", nullptr, static_cast<int>(m_dragged.size()));
        }
        auto* shapes = new QMimeData;
        shapes->setData(QLatin1String(OutlinerModel::kShapesFormat), {});
        drag->setMimeData(shapes);
    }
    drag->setPixmap(
        DragPicture(*this, text, m_dragsMaterial ? &m_dragged.front()->Material() : nullptr));
    drag->setHotSpot(QPoint(-14, -10));
    drag->exec(Qt::CopyAction);
    m_dragged.clear();
    ShowTarget({});
}

ShapeList OutlinerView::TargetsAt(const QModelIndex& index) const
{
    const bool isOneOfSelected =
        !m_model.IsMaterial(index) && selectionModel()->isSelected(index.siblingAtColumn(0));
    return isOneOfSelected ? SelectedShapes() : m_model.ShapesOf(index);
}

OutlinerView::Drop OutlinerView::DropAt(const QDropEvent& event) const
{
    const QModelIndex index = indexAt(event.position().toPoint());
    if (!index.isValid()) {
        return {};
    }
    Drop drop;
    if (event.source() == this && !m_dragsMaterial) {
        const QModelIndex row = m_model.IsMaterial(index.parent()) ? index.parent() : index;
        const bool isOnMaterial = m_model.IsMaterial(row) || m_model.Swatch(index) != nullptr;
        if (isOnMaterial) {
            drop = {m_model.ShapesOf(row).front(), {}, m_dragged, m_model.MaterialAt(row)->name};
        }
        return drop;
    }
    drop.material = DraggedMaterial(*event.mimeData());
    if (drop.material) {
        drop.name = QString::fromStdString(drop.material->name);
        drop.shapes = TargetsAt(index);
    }
    if (event.source() == this) {
        drop.wearer = m_dragged.front();
    }
    return drop;
}

void OutlinerView::ShowTarget(const QModelIndex& index)
{
    if (m_target != index) {
        m_target = index;
        viewport()->update();
    }
}

void OutlinerView::dragEnterEvent(QDragEnterEvent* event)
{
    const bool isOurs = event->source() == this || DraggedMaterial(*event->mimeData()).has_value();
    event->setAccepted(isOurs);
}

void OutlinerView::dragMoveEvent(QDragMoveEvent* event)
{
    startAutoScroll();
    const Drop drop = DropAt(*event);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(!drop.shapes.empty());
    ShowTarget(drop.shapes.empty() ? QModelIndex()
                                   : indexAt(event->position().toPoint()).siblingAtColumn(0));
    const QString where = drop.shapes.size() == 1
                              ? QString::fromStdString(drop.shapes.front()->Name())
                              : tr("%Ln shape(s)", nullptr, static_cast<int>(drop.shapes.size()));
    Q_EMIT Hint(drop.shapes.empty() ? QString() : tr("Put %1 on %2").arg(drop.name, where));
}

void OutlinerView::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    stopAutoScroll();
    ShowTarget({});
    Q_EMIT Hint({});
}

void OutlinerView::dropEvent(QDropEvent* event)
{
    stopAutoScroll();
    setState(NoState);
    ShowTarget({});
    Q_EMIT Hint({});
    const Drop drop = DropAt(*event);
    event->setDropAction(Qt::CopyAction);
    event->setAccepted(!drop.shapes.empty());
    if (drop.shapes.empty()) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this, drop] {
            if (drop.wearer != nullptr) {
                Q_EMIT ShareWanted(drop.wearer, drop.shapes);
            } else {
                Q_EMIT MaterialDropped(*drop.material, drop.shapes);
            }
        },
        Qt::QueuedConnection);
}

void OutlinerView::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    QTreeView::drawRow(painter, option, index);
    if (m_target.isValid() && index.siblingAtColumn(0) == m_target) {
        painter->save();
        painter->setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
        painter->restore();
    }
}

}  // namespace studio
