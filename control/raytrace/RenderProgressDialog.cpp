#include "RenderProgressDialog.h"

#include "ui_RenderProgressDialog.h"
#include <CorvexMaterial/KeyboardAccess.h>

#include <QApplication>
#include <QCloseEvent>

namespace CorvexMaterial {

namespace {

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TabletPress:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

}  // namespace

RenderProgressDialog::RenderProgressDialog(QWidget& over)
    : QDialog(over.window(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_over(over), m_ui(std::make_unique<Ui::RenderProgressDialog>())
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    connect(m_ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    // Escape and the window's frame end here too.
    connect(this, &QDialog::rejected, this, [this] { m_cancelled = true; });
    qApp->installEventFilter(this);
}

RenderProgressDialog::~RenderProgressDialog()
{
    for (const QPointer<QWidget>& window : m_toClose) {
        if (window) {
            QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        }
    }
}

bool RenderProgressDialog::IsBelow(const QWidget& window) const
{
    const QWidget* below = &m_over;
    while (below != nullptr && below->window() != &window) {
        below = below->window()->parentWidget();
    }
    return below != nullptr;
}

bool RenderProgressDialog::IsShut(const QObject& receiver) const
{
    const auto* widget = qobject_cast<const QWidget*>(&receiver);
    if (widget == nullptr) {
        return !receiver.isWindowType();  // a window hands on what its widgets are to hear
    }
    // A dialog of the host's own that has come up meanwhile can be answered.
    const QWidget& window = *widget->window();
    return &window != this && (!window.isModal() || IsBelow(window));
}

bool RenderProgressDialog::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Close && widget != nullptr && IsBelow(*widget)) {
        m_toClose.emplace_back(widget);
        m_cancelled = true;
        event->ignore();
        return true;
    }
    const bool shut = IsInput(event->type()) && IsShut(*watched);
    if (shut && event->type() == QEvent::MouseButtonPress) {
        activateWindow();  // so that Escape goes on cancelling
    }
    return shut;
}

void RenderProgressDialog::Open()
{
    m_opened = true;
    adjustSize();
    const QPoint centre = m_over.mapToGlobal(m_over.rect().center());
    move(centre - rect().center());
    show();
}

void RenderProgressDialog::ShowPercent(std::optional<int> percent)
{
    if (!m_opened) {
        Open();
    }
    // A range without length shows that something is going on.
    m_ui->barProgress->setRange(0, percent ? 100 : 0);
    m_ui->barProgress->setValue(percent.value_or(0));
}

bool RenderProgressDialog::HandleInput()
{
    QCoreApplication::processEvents();
    return m_cancelled;
}

}  // namespace CorvexMaterial
