#pragma once

#include <QDialog>
#include <QPointer>

#include <functional>

namespace CorvexMaterial {

/// What lets a dialog stay open without being in the way: it stands near the widget that opened it,
/// views can be turned meanwhile, and whatever else the user begins in the program ends it first.
class BesideWork : public QObject {
    Q_OBJECT

public:
    /// `leave` ends the dialog. As long as it then stays open, what was begun does not happen.
    BesideWork(QDialog& dialog, QWidget* beside, std::function<void()> leave);

    /// On the screen of the widget, beside it and not over it.
    static void Place(QWidget& dialog, const QWidget& beside);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsOutside(const QWidget& widget) const;
    [[nodiscard]] bool Leave(const QObject* watched);

    QDialog& m_dialog;
    QPointer<QWidget> m_beside;
    std::function<void()> m_leave;
};

}  // namespace CorvexMaterial
