#pragma once

#include <CorvexMaterial/SettingsStore.h>

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

class QDialog;
class QWidget;

namespace studio {

/// Shows the warnings that the control asks for, unless the user has silenced them. Never waits for
/// the user: the dialog stands beside the work, closes when the work goes on, and keeps its choice
/// however it is closed.
class WarningPresenter : public QObject {
public:
    /// Both outlive this object.
    WarningPresenter(CorvexMaterial::SettingsStore& store, QWidget& window);

    /// Shows the text unless the stored choice of the key is another number than 1; a key that is
    /// on the screen already is not shown twice.
    void Present(const QString& application, const QString& warning, const QString& key);
    /// Closes what is still open; the choices are stored as for any other closing.
    void CloseAll();
    /// Lets every warning of the application be shown again. Errors: FileFailed.
    void RestoreAll(const QString& application);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool Wanted(const QString& application, const QString& key) const;
    void Keep(const QString& application, const QString& key, bool continueToReceive);

    CorvexMaterial::SettingsStore& m_store;
    QWidget& m_window;
    QHash<QString, QPointer<QDialog>> m_open;
};

}  // namespace studio
