#pragma once

#include <QPointer>
#include <QWidget>

namespace CorvexMaterial {

/// The window that dialogs are modal to; null once that window is gone.
struct DialogParent {
    QPointer<QWidget> widget;
};

}  // namespace CorvexMaterial
