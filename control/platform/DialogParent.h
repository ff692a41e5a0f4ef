#pragma once

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace CorvexMaterial {

/// The window that dialogs are modal to; null once that window is gone.
struct DialogParent {
    QPointer<QWidget> widget;

    /// Where the user is: what a dialog brings up belongs over it, not beside it over the window.
    [[nodiscard]] QWidget* Current() const
    {
        QWidget* const dialog = QApplication::activeModalWidget();
        return dialog != nullptr ? dialog : widget.data();
    }
};

}  // namespace CorvexMaterial
