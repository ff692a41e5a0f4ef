#pragma once

#include <QColor>
#include <QImage>
#include <QPointer>
#include <QWidget>

namespace CorvexMaterial {

/// Takes a colour from what the program's windows show: pointed at and clicked, or with the arrow
/// keys and Return. Escape and the right button leave it. While it is active nothing else in the
/// program hears of mouse and keyboard. What is under the pointer is shown enlarged beside it.
class Eyedropper : public QWidget {
    Q_OBJECT

public:
    /// For the window that gets mouse and keyboard meanwhile.
    explicit Eyedropper(QWidget& window);
    ~Eyedropper() override;

    void Start();
    [[nodiscard]] bool IsActive() const { return m_active; }

Q_SIGNALS:
    void Pointed(const QColor& colour);
    void Picked(const QColor& colour);
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void PointAt(QPoint screen);
    void Pick(QPoint screen);
    void PressKey(int key);
    void Stop();

    QWidget& m_window;
    QImage m_around;
    bool m_active = false;
};

}  // namespace CorvexMaterial
