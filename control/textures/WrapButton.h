#pragma once

#include <QMouseEvent>
#include <QToolButton>

namespace CorvexMaterial {

/// A button of the wrap group that also tells when the right mouse button is let go over it.
class WrapButton : public QToolButton {
    Q_OBJECT

public:
    explicit WrapButton(QWidget* parent) : QToolButton(parent) {}

Q_SIGNALS:
    void RightReleased();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        QToolButton::mouseReleaseEvent(event);
        if (event->button() == Qt::RightButton && rect().contains(event->position().toPoint())) {
            Q_EMIT RightReleased();
        }
    }
};

}  // namespace CorvexMaterial
