#pragma once

#include <QObject>

#include <functional>
#include <stop_token>

namespace studio {

class WaitDialog;

/// Does what may take long, reading and writing documents, on a thread of its own. The window waits
/// meanwhile: it is painted, but takes no input, and after half a second a dialog says what is
/// being done.
class DocumentWork : public QObject {
    Q_OBJECT

public:
    /// What is thrown where the user has cancelled.
    struct Cancelled {};

    /// The window is its parent.
    explicit DocumentWork(QWidget& window);

    /// Comes back when the job has ended; what it throws is thrown here.
    void Do(const QString& text, const std::function<void()>& job);
    /// The same with a button that tells the job to stop, and `Cancelled` however it ends then.
    void DoOrCancel(const QString& text, const std::function<void(const std::stop_token&)>& job);
    [[nodiscard]] bool IsBusy() const { return m_isBusy; }

private:
    enum class Input { None, OfDialog };
    void Run(WaitDialog& wait, Input input, const std::function<void(const std::stop_token&)>& job);

    QWidget& m_window;
    bool m_isBusy = false;
};

}  // namespace studio
