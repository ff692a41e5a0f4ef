#include "LibraryView.h"

#include "LibraryDelegate.h"
#include "LibraryModel.h"
#include <CorvexMaterial/LegibleColours.h>

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

namespace studio {
namespace {

constexpr int kLeastColumnWidth = 58;
// Where there is room, names have more of it than the pictures need.
constexpr int kRoomyWidth = 400;
constexpr int kRoomyColumnWidth = 86;

constexpr Qt::KeyboardModifiers kExtending = Qt::ControlModifier | Qt::ShiftModifier;

}  // namespace

LibraryView::LibraryView(LibraryModel& model, LibraryDelegate& delegate, int rowHeight,
                         QWidget* parent)
    : QListView(parent), m_delegate(delegate), m_rowHeight(rowHeight)
{
    setModel(&model);
    setItemDelegate(&delegate);
    // Wrapped rows of one size: the layout costs nothing per entry but its place, and no entry is
    // looked at before it can be seen.
    setViewMode(QListView::ListMode);
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionRectVisible(true);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setDragEnabled(true);
    setAcceptDrops(true);
    setFrameShape(QFrame::NoFrame);
    setMouseTracking(true);
    connect(this, &QListView::clicked, this, &LibraryView::OnClicked);
    ArrangeColumns();
}

void LibraryView::SetEmptyText(const QString& text)
{
    m_emptyText = text;
    viewport()->update();
}

void LibraryView::SetBackground(const QColor& background)
{
    m_background = background;
    viewport()->update();
}

void LibraryView::Mark(int row)
{
    if (row < 0) {
        clearSelection();
        setCurrentIndex({});
    } else {
        selectionModel()->setCurrentIndex(model()->index(row, 0),
                                          QItemSelectionModel::ClearAndSelect);
    }
}

void LibraryView::OnClicked(const QModelIndex& index)
{
    // The second click of a double click ends here too; the entry is open by then.
    if (!m_doubleClicked && !m_extends) {
        Q_EMIT Chosen(index.row());
    }
    m_doubleClicked = false;
}

void LibraryView::mousePressEvent(QMouseEvent* event)
{
    m_doubleClicked = false;
    m_extends = (event->modifiers() & kExtending) != Qt::NoModifier;
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (index.isValid() && event->button() == Qt::LeftButton &&
        LibraryDelegate::StarArea(visualRect(index)).contains(position)) {
        Q_EMIT StarPressed(index.row());
        return;
    }
    QListView::mousePressEvent(event);
}

void LibraryView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() &&
        LibraryDelegate::StarArea(visualRect(index)).contains(event->position().toPoint())) {
        mousePressEvent(event);  // of two quick ones the second takes it away again
        return;
    }
    m_doubleClicked = true;
    QListView::mouseDoubleClickEvent(event);
    if (index.isValid() && event->button() == Qt::LeftButton) {
        Q_EMIT Opened(index.row());
    }
}

// As the menu of an entry tells them: Ctrl+D, and Ctrl with the number of stars.
bool LibraryView::MarksByKey(const QKeyEvent& event)
{
    if (event.modifiers() != Qt::ControlModifier || selectionModel()->selectedIndexes().isEmpty()) {
        return false;
    }
    if (event.key() == Qt::Key_D) {
        Q_EMIT FavouritePressed();
        return true;
    }
    if (event.key() >= Qt::Key_0 && event.key() <= Qt::Key_0 + kBestRating) {
        Q_EMIT RatingPressed(event.key() - Qt::Key_0);
        return true;
    }
    return false;
}

// Before a shortcut of the window takes the key.
bool LibraryView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool isMark = key.key() == Qt::Key_D ||
                            (key.key() >= Qt::Key_0 && key.key() <= Qt::Key_0 + kBestRating);
        if (key.matches(QKeySequence::SelectAll) ||
            (key.modifiers() == Qt::ControlModifier && isMark)) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void LibraryView::keyPressEvent(QKeyEvent* event)
{
    // A window gives its keys also to a widget that is hidden or scrolled away by now.
    if (!hasFocus() || viewport()->visibleRegion().isEmpty()) {
        event->ignore();
        return;
    }
    const QModelIndex before = currentIndex();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && before.isValid() && state() != EditingState) {
        Q_EMIT Opened(before.row());
        return;
    }
    // First: on some desktops Ctrl+D is a second key to delete.
    if (state() != EditingState && MarksByKey(*event)) {
        return;
    }
    if (event->matches(QKeySequence::Delete) && state() != EditingState) {
        Q_EMIT DeletePressed();
        return;
    }
    QListView::keyPressEvent(event);
    const bool extends = (event->modifiers() & kExtending) != Qt::NoModifier;
    if (currentIndex().isValid() && currentIndex() != before && !extends) {
        Q_EMIT Chosen(currentIndex().row());
    }
}

void LibraryView::contextMenuEvent(QContextMenuEvent* event)
{
    // By mouse it is about what is under the pointer, by key about what is marked.
    if (event->reason() == QContextMenuEvent::Mouse) {
        const QModelIndex index = indexAt(event->pos());
        if (!index.isValid() || !selectionModel()->isSelected(index)) {
            Mark(index.row());
        }
        Q_EMIT MenuWanted(event->globalPos());
        return;
    }
    const QPoint place = visualRect(currentIndex()).center();
    Q_EMIT MenuWanted(viewport()->mapToGlobal(place));
}

void LibraryView::keyboardSearch(const QString& search)
{
    if (!search.trimmed().isEmpty()) {
        Q_EMIT SearchTyped(search);
    }
}

void LibraryView::startDrag(Qt::DropActions /*actions*/)
{
    if (currentIndex().isValid()) {
        Q_EMIT DragStarted(currentIndex().row());
    }
}

void LibraryView::dragEnterEvent(QDragEnterEvent* event)
{
    m_isTarget = m_takes && m_takes(*event);
    event->setAccepted(m_isTarget);
    viewport()->update();
}

void LibraryView::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(m_isTarget);
}

void LibraryView::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    m_isTarget = false;
    viewport()->update();
}

void LibraryView::dropEvent(QDropEvent* event)
{
    m_isTarget = false;
    viewport()->update();
    if (!m_takes || !m_takes(*event)) {
        event->ignore();
        return;
    }
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT Dropped(*event->mimeData());
}

void LibraryView::resizeEvent(QResizeEvent* event)
{
    ArrangeColumns();
    QListView::resizeEvent(event);
}

// The width is shared evenly, so that no gap is left at the right.
void LibraryView::ArrangeColumns()
{
    const int width = std::max(viewport()->width() - 1, 1);
    const int least = width < kRoomyWidth ? kLeastColumnWidth : kRoomyColumnWidth;
    const int columns = std::max(width / least, 1);
    const QSize cell(width / columns, m_rowHeight);
    if (cell != gridSize()) {
        m_delegate.SetCell(cell);
        setGridSize(cell);
    }
    verticalScrollBar()->setSingleStep(m_rowHeight / 2);
}

void LibraryView::paintEvent(QPaintEvent* event)
{
    // Not left to the palette, which an application's style sheet overrules.
    QPainter(viewport()).fillRect(event->rect(), m_background);
    QListView::paintEvent(event);
    if (m_isTarget) {
        QPainter frame(viewport());
        frame.setPen(QPen(palette().color(QPalette::Highlight), 3));
        frame.drawRect(viewport()->rect().adjusted(1, 1, -2, -2));
    }
    if (model()->rowCount() > 0) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(CorvexMaterial::QuietTextOn(m_background));
    painter.drawText(viewport()->rect().adjusted(8, 2, -8, -2), Qt::AlignCenter | Qt::TextWordWrap,
                     m_emptyText);
}

}  // namespace studio
