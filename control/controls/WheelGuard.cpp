#include "WheelGuard.h"

#include <QAbstractSlider>
#include <QComboBox>
#include <QEvent>

namespace CorvexMaterial {

namespace {

/// The wheel must not bring the focus either, which would let it through.
void Guard(QWidget& widget, QObject& filter)
{
    widget.installEventFilter(&filter);
    if (widget.focusPolicy() == Qt::WheelFocus) {
        widget.setFocusPolicy(Qt::StrongFocus);
    }
}

class WheelFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::Wheel || widget == nullptr || widget->hasFocus()) {
            return false;
        }
        event->ignore();
        return true;
    }
};

}  // namespace

void GuardWheel(QWidget& panel)
{
    auto* filter = new WheelFilter(&panel);
    for (QComboBox* list : panel.findChildren<QComboBox*>()) {
        Guard(*list, *filter);
    }
    for (QAbstractSlider* slider : panel.findChildren<QAbstractSlider*>()) {
        Guard(*slider, *filter);
    }
}

}  // namespace CorvexMaterial
