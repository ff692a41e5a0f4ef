#include "controls/WheelGuard.h"

#include <QAbstractSlider>
#include <QComboBox>
#include <QEvent>

namespace CorvexMaterial {

namespace {

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
        list->installEventFilter(filter);
    }
    for (QAbstractSlider* slider : panel.findChildren<QAbstractSlider*>()) {
        slider->installEventFilter(filter);
    }
}

}  // namespace CorvexMaterial
