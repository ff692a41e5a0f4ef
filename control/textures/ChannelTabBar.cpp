#include "ChannelTabBar.h"

#include "DroppedFile.h"

#include <QApplication>
#include <QMouseEvent>
#include <QStyleOptionTab>
#include <QStylePainter>

#include <utility>

namespace CorvexMaterial {

namespace {

constexpr int kLeastTabWidth = 22;
constexpr int kTabHeight = 30;
constexpr qreal kMarkRadius = 2.5;

}  // namespace

ChannelTabBar::ChannelTabBar(QWidget* parent) : QTabBar(parent)
{
    setUsesScrollButtons(false);
    setDrawBase(false);
    setAcceptDrops(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ChannelTabBar::SetUsed(int tab, bool used)
{
    setTabData(tab - 1, used);
    update(tabRect(tab - 1));
}

void ChannelTabBar::SetFileTabs(int first, int last)
{
    m_firstFileTab = first;
    m_lastFileTab = last;
}

QSize ChannelTabBar::minimumSizeHint() const
{
    return {kLeastTabWidth * count(), kTabHeight};
}

QSize ChannelTabBar::tabSizeHint(int index) const
{
    // The remainder of the division goes to the first tabs, one pixel each.
    const int extra = index < width() % count() ? 1 : 0;
    return {std::max(width() / count() + extra, kLeastTabWidth), kTabHeight};
}

QSize ChannelTabBar::minimumTabSizeHint(int /*index*/) const
{
    return {kLeastTabWidth, kTabHeight};
}

void ChannelTabBar::paintEvent(QPaintEvent* /*event*/)
{
    // Styles put a tab's icon where its text would begin; alone it belongs in the middle.
    QStylePainter painter(this);
    for (int index = 0; index < count(); ++index) {
        if (index != currentIndex()) {
            PaintTab(painter, index);
        }
    }
    if (currentIndex() >= 0) {
        PaintTab(painter, currentIndex());
    }
}

void ChannelTabBar::PaintTab(QStylePainter& painter, int index) const
{
    QStyleOptionTab option;
    initStyleOption(&option, index);
    painter.drawControl(QStyle::CE_TabBarTabShape, option);
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    QRect area(QPoint(), iconSize());
    area.moveCenter(option.rect.center());
    tabIcon(index).paint(&painter, area, Qt::AlignCenter, mode);
    if (tabData(index).toBool()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                         QPalette::Highlight));
        painter.drawEllipse(QPointF(area.right() + 1, area.top()), kMarkRadius, kMarkRadius);
    }
    if (index + 1 == m_dropTab) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRect(QRectF(option.rect).adjusted(1, 1, -1, -1));
    }
    if (hasFocus() && index == currentIndex()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = option.rect.adjusted(3, 3, -3, -2);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

bool ChannelTabBar::TakesFiles(int tab) const
{
    return tab >= m_firstFileTab && tab <= m_lastFileTab;
}

// The wheel scrolls the panel; a tab is changed on purpose.
void ChannelTabBar::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ChannelTabBar::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->pos();
    QTabBar::mousePressEvent(event);
}

void ChannelTabBar::mouseMoveEvent(QMouseEvent* event)
{
    const int index = tabAt(m_pressed);
    const bool isDrag =
        event->buttons() == Qt::LeftButton &&
        (event->pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance();
    if (isDrag && TakesFiles(index + 1) && tabData(index).toBool()) {
        m_pressed = {-1, -1};
        Q_EMIT LayerDragged(index + 1);
        // The drop has taken the release.
        QMouseEvent release(QEvent::MouseButtonRelease, event->position(), event->globalPosition(),
                            Qt::LeftButton, Qt::NoButton, event->modifiers());
        QTabBar::mouseReleaseEvent(&release);
    } else {
        QTabBar::mouseMoveEvent(event);
    }
}

std::optional<TextureLayer> ChannelTabBar::LayerFor(int tab, const QDropEvent& event) const
{
    const auto layer = m_panel != nullptr ? DraggedLayer(event, *m_panel) : std::nullopt;
    return layer && RowOf(*layer).tab != tab ? layer : std::nullopt;
}

void ChannelTabBar::ShowDropOn(int tab)
{
    if (std::exchange(m_dropTab, tab) != tab) {
        update();
    }
}

void ChannelTabBar::dragEnterEvent(QDragEnterEvent* event)
{
    // Without the entry there are no moves, and only they tell the tab.
    if (LayerFor(0, *event)) {
        AcceptLayer(*event);
    } else if (DroppedFile(*event).isEmpty()) {
        event->ignore();
    } else {
        event->acceptProposedAction();
    }
}

void ChannelTabBar::dragMoveEvent(QDragMoveEvent* event)
{
    const int tab = tabAt(event->position().toPoint()) + 1;
    const bool takesLayer = TakesFiles(tab) && LayerFor(tab, *event);
    const bool takesFile = TakesFiles(tab) && !DroppedFile(*event).isEmpty();
    ShowDropOn(takesLayer || takesFile ? tab : 0);
    if (takesLayer) {
        AcceptLayer(*event);
    } else if (takesFile) {
        event->acceptProposedAction();
    } else {
        event->ignore(tabRect(tab - 1));
    }
}

void ChannelTabBar::dragLeaveEvent(QDragLeaveEvent* /*event*/)
{
    ShowDropOn(0);
}

void ChannelTabBar::dropEvent(QDropEvent* event)
{
    ShowDropOn(0);
    const int tab = tabAt(event->position().toPoint()) + 1;
    const QString file = DroppedFile(*event);
    if (const auto layer = LayerFor(tab, *event); layer && TakesFiles(tab)) {
        Q_EMIT LayerDropped(tab, *layer, AcceptLayer(*event));
    } else if (TakesFiles(tab) && !file.isEmpty()) {
        event->acceptProposedAction();
        Q_EMIT FileDropped(tab, file);
    } else {
        event->ignore();
    }
}

}  // namespace CorvexMaterial
