#include "HelpDesk.h"

#include "HelpWindow.h"
#include "KeySheet.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenu>

namespace studio {

HelpDesk::HelpDesk(QMainWindow& window) : QObject(&window), m_window(window)
{
    // A shortcut does nothing behind a dialog.
    qApp->installEventFilter(this);
}

void HelpDesk::AddTo(QMenu& menu)
{
    // The key is shown here and answered by the filter, which knows all windows.
    menu.addAction(tr("&Contents") + QStringLiteral("\tF1"), this, [this] { Open({}); })
        ->setStatusTip(tr("F1 opens the page of what has the keyboard"));
    menu.addAction(tr("&Keys and Mouse..."), this, &HelpDesk::ShowKeys)
        ->setStatusTip(tr("All keys of the window, and what the mouse does in the view"));
}

bool HelpDesk::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched->isWidgetType()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier) {
            const auto* widget = static_cast<QWidget*>(watched);
            const QString topic = HelpTopicOf(widget);
            Open(topic.isEmpty() ? HelpTopicOf(QApplication::widgetAt(QCursor::pos())) : topic);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void HelpDesk::Open(const QString& topic)
{
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* parent = modal == nullptr ? &m_window : modal;
    // A modal dialog lets its own windows be used alone.
    if (m_help != nullptr && m_help->parentWidget() != parent) {
        m_help->close();
        m_help.clear();
    }
    if (m_help == nullptr) {
        m_help = new HelpWindow(parent);
    }
    m_help->ShowTopic(topic);
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void HelpDesk::ShowKeys()
{
    auto* sheet = new KeySheet(m_window);
    sheet->show();
}

}  // namespace studio
