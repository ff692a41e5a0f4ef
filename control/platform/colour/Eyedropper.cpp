#include "Eyedropper.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace CorvexMaterial {

namespace {

constexpr int kReach = 5;  // pixels around the pointer
constexpr int kCells = 2 * kReach + 1;
constexpr int kCell = 9;
constexpr int kCaption = 20;
constexpr int kOffset = 20;

/// What the window under a place shows there and around it; null outside of the program's windows.
QImage PictureAround(QPoint screen)
{
    QWidget* const widget = QApplication::widgetAt(screen);
    if (widget == nullptr) {
        return {};
    }
    QWidget* const window = widget->window();
    const QRect wanted(window->mapFromGlobal(screen) - QPoint(kReach, kReach),
                       QSize(kCells, kCells));
    const QRect shown = wanted & window->rect();
    QImage picture(kCells, kCells, QImage::Format_RGB32);
    picture.fill(Qt::black);
    window->render(&picture, shown.topLeft() - wanted.topLeft(), shown);
    return picture;
}

QColor Middle(const QImage& picture)
{
    return picture.isNull() ? QColor() : picture.pixelColor(kReach, kReach);
}

}  // namespace

Eyedropper::Eyedropper(QWidget& window)
    : QWidget(&window, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput),
      m_window(window)
{
    setObjectName(QStringLiteral("eyedropper"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(kCells * kCell, kCells * kCell + kCaption);
}

Eyedropper::~Eyedropper()
{
    Stop();
}

void Eyedropper::Start()
{
    m_active = true;
    qApp->installEventFilter(this);
    // Windows behind a modal one hear of nothing themselves.
    m_window.grabMouse(Qt::CrossCursor);
    m_window.grabKeyboard();
    PointAt(QCursor::pos());
}

void Eyedropper::Stop()
{
    if (!std::exchange(m_active, false)) {
        return;
    }
    qApp->removeEventFilter(this);
    m_window.releaseMouse();
    m_window.releaseKeyboard();
    hide();
}

void Eyedropper::PointAt(QPoint screen)
{
    m_around = PictureAround(screen);
    const QColor colour = Middle(m_around);
    setVisible(colour.isValid());
    if (!colour.isValid()) {
        return;
    }
    // On the other side of the pointer where the screen ends.
    const QScreen* const on = QGuiApplication::screenAt(screen);
    const QRect free = (on != nullptr ? on : m_window.screen())->availableGeometry();
    QPoint at = screen + QPoint(kOffset, kOffset);
    if (at.x() + width() > free.right()) {
        at.setX(screen.x() - kOffset - width());
    }
    if (at.y() + height() > free.bottom()) {
        at.setY(screen.y() - kOffset - height());
    }
    move(at);
    update();
    Q_EMIT Pointed(colour);
}

void Eyedropper::Pick(QPoint screen)
{
    const QColor colour = Middle(PictureAround(screen));
    if (colour.isValid()) {
        Stop();
        Q_EMIT Picked(colour);
    }
}

void Eyedropper::PressKey(int key)
{
    const QPoint at = QCursor::pos();
    switch (key) {
    case Qt::Key_Escape:
        Stop();
        Q_EMIT Left();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Pick(at);
        break;
    case Qt::Key_Left:
        QCursor::setPos(at - QPoint(1, 0));
        break;
    case Qt::Key_Right:
        QCursor::setPos(at + QPoint(1, 0));
        break;
    case Qt::Key_Up:
        QCursor::setPos(at - QPoint(0, 1));
        break;
    case Qt::Key_Down:
        QCursor::setPos(at + QPoint(0, 1));
        break;
    default:
        break;
    }
}

bool Eyedropper::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType()) {
        // Before its shortcuts.
        return event->type() == QEvent::Shortcut;
    }
    switch (event->type()) {
    case QEvent::MouseMove:
        PointAt(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return true;
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            Pick(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
        } else {
            PressKey(Qt::Key_Escape);
        }
        return true;
    case QEvent::KeyPress:
        PressKey(static_cast<QKeyEvent*>(event)->key());
        return true;
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyRelease:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        return true;
    default:
        return false;
    }
}

void Eyedropper::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRect cells(0, 0, kCells * kCell, kCells * kCell);
    painter.fillRect(rect(), palette().toolTipBase());
    painter.drawImage(cells, m_around);
    const QRect middle(kReach * kCell, kReach * kCell, kCell, kCell);
    painter.setPen(Qt::black);
    painter.drawRect(middle.adjusted(-1, -1, 0, 0));
    painter.setPen(Qt::white);
    painter.drawRect(middle.adjusted(-2, -2, 1, 1));
    painter.setPen(palette().color(QPalette::ToolTipText));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.drawText(rect().adjusted(0, cells.height(), 0, 0), Qt::AlignCenter,
                     Middle(m_around).name());
}

}  // namespace CorvexMaterial
