#include "ChannelTabBar.h"

#include "DroppedFile.h"

#include <QStyleOptionTab>
#include <QStylePainter>

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

void ChannelTabBar::dragEnterEvent(QDragEnterEvent* event)
{
    // Without the entry there are no moves, and only they tell the tab.
    if (DroppedFile(*event).isEmpty()) {
        event->ignore();
    } else {
        event->acceptProposedAction();
    }
}

void ChannelTabBar::dragMoveEvent(QDragMoveEvent* event)
{
    const QRect rect = tabRect(tabAt(event->position().toPoint()));
    if (TakesFiles(tabAt(event->position().toPoint()) + 1) && !DroppedFile(*event).isEmpty()) {
        event->acceptProposedAction();
    } else {
        event->ignore(rect);
    }
}

void ChannelTabBar::dropEvent(QDropEvent* event)
{
    const int tab = tabAt(event->position().toPoint()) + 1;
    const QString file = DroppedFile(*event);
    if (!TakesFiles(tab) || file.isEmpty()) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    Q_EMIT FileDropped(tab, file);
}

}  // namespace CorvexMaterial
