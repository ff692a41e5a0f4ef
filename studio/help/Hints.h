#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace studio {

/// First steps, one line at a time, at the lower edge of the view. Who does what a line says sees
/// the next one.
class Hints : public QFrame {
    Q_OBJECT

public:
    enum class Step { Select, Edit, Look, Take, Save };

    explicit Hints(QWidget& view);

    void Begin();
    /// Goes on if it is the step that is shown.
    void Done(Step step);

Q_SIGNALS:
    /// To their end or closed.
    void Ended();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Show();
    void Next();
    void Place();

    QLabel* m_text;
    QLabel* m_count;
    QPushButton* m_next;
    int m_step = 0;
};

}  // namespace studio
