#pragma once

#include <QObject>

#include <functional>

namespace studio {

/// Does what may take long, reading and writing documents, on a thread of its own. The window waits
/// meanwhile: it is painted, but takes no input, and after half a second a dialog says what is
/// being done.
class DocumentWork : public QObject {
    Q_OBJECT

public:
    /// The window is its parent.
    explicit DocumentWork(QWidget& window);

    /// Comes back when the job has ended; what it throws is thrown here.
    void Do(const QString& text, const std::function<void()>& job);
    [[nodiscard]] bool IsBusy() const { return m_isBusy; }

private:
    QWidget& m_window;
    bool m_isBusy = false;
};

}  // namespace studio
