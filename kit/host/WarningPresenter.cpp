#include "WarningPresenter.h"

#include "WarningDialog.h"
#include <CorvexMaterial/Status.h>
#include <CorvexMaterial/WarningCatalogue.h>

#include <QApplication>
#include <QTimer>

namespace studio {
namespace {

CorvexMaterial::SettingAddress AddressOf(const QString& application, const QString& key)
{
    return {application.toStdString(), std::string(CorvexMaterial::kTipsSection),
            key.toStdString()};
}

}  // namespace

WarningPresenter::WarningPresenter(CorvexMaterial::SettingsStore& store, QWidget& window)
    : m_store(store), m_window(window)
{
}

void WarningPresenter::Present(const QString& application, const QString& warning,
                               const QString& key)
{
    if (m_open.value(key) != nullptr || !Wanted(application, key)) {
        return;
    }
    auto* dialog = new WarningDialog(warning, &m_window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (m_open.isEmpty()) {
        qApp->installEventFilter(this);
    }
    m_open.insert(key, dialog);
    // Every way of closing a dialog ends in this signal.
    QObject::connect(dialog, &QDialog::finished, &m_window, [this, application, key, dialog] {
        m_open.remove(key);
        if (m_open.isEmpty()) {
            qApp->removeEventFilter(this);
        }
        Keep(application, key, dialog->ContinueToReceive());
    });
    // A dialog that opens with the warning would cover it and keep it from being closed. So it
    // waits for that one to be there: who is shown over another window stays over that one.
    QTimer::singleShot(0, dialog, [dialog] {
        QWidget* const front = QApplication::activeModalWidget();
        if (front != nullptr) {
            dialog->setParent(front, dialog->windowFlags());
        }
        dialog->show();
        dialog->raise();
        dialog->activateWindow();
    });
}

// A window over another stays over it, and would lie on what the user does next.
bool WarningPresenter::eventFilter(QObject* watched, QEvent* event)
{
    const bool isWork =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress;
    const auto* widget = isWork ? qobject_cast<const QWidget*>(watched) : nullptr;
    if (widget != nullptr && qobject_cast<const WarningDialog*>(widget->window()) == nullptr) {
        CloseAll();
    }
    return QObject::eventFilter(watched, event);
}

void WarningPresenter::CloseAll()
{
    const auto open = m_open.values();
    for (const QPointer<QDialog>& dialog : open) {
        if (dialog != nullptr) {
            dialog->reject();
        }
    }
}

void WarningPresenter::RestoreAll(const QString& application)
{
    for (const CorvexMaterial::WarningRow& row : CorvexMaterial::WarningRows()) {
        const auto key = QString::fromUtf8(row.key.data(), static_cast<qsizetype>(row.key.size()));
        const auto address = AddressOf(application, key);
        if (m_store.Read(address)) {
            m_store.Write(address, CorvexMaterial::TextOfWarningChoice(true));
        }
    }
    m_store.Flush(application.toStdString());
}

bool WarningPresenter::Wanted(const QString& application, const QString& key) const
{
    return CorvexMaterial::WarningWanted(m_store.Read(AddressOf(application, key)));
}

void WarningPresenter::Keep(const QString& application, const QString& key, bool continueToReceive)
{
    m_store.Write(AddressOf(application, key),
                  CorvexMaterial::TextOfWarningChoice(continueToReceive));
    try {
        m_store.Flush(application.toStdString());
    } catch (const CorvexMaterial::Error&) {
        // The choice holds for this run; the window says so once, when it saves everything else.
        return;
    }
}

}  // namespace studio
