#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <stop_token>

namespace studio {

class WaitDialog;
class WindowMessages;

/// Does what may take long, reading and writing files, on a thread of its own.
class FileWork : public QObject {
    Q_OBJECT

public:
    using Job = std::function<void(const std::stop_token& stop)>;
    /// What is thrown where the user has cancelled.
    struct Cancelled {};

    /// The messages outlive this object; the window is its parent.
    FileWork(WindowMessages& messages, QWidget& window);
    /// What goes on is given up, and waited for.
    ~FileWork() override;

    /// The window waits meanwhile: it is painted, but takes no input, and after half a second a
    /// dialog says what is being done. Comes back when the job has ended; what it throws is thrown
    /// here.
    void Do(const QString& text, const std::function<void()>& job);
    /// The same with a button that tells the job to stop, and `Cancelled` however it ends then.
    void DoOrCancel(const QString& text, const Job& job);

    /// The window goes on, and after half a second a dialog says what is being done and offers to
    /// cancel it. The job works on values of its own, as nobody waits for it. Then `done` is
    /// called, here too; not for a job that throws, which the user is told of, and not for one that
    /// was cancelled in time. Only one at a time goes on so: the user is told of another.
    void Start(const QString& text, Job job, std::function<void()> done);
    /// What was started.
    void Cancel();

    [[nodiscard]] bool IsWaiting() const { return m_isWaiting; }
    [[nodiscard]] bool IsBusy() const { return m_isWaiting || m_started != nullptr; }

private:
    enum class Input { None, OfDialog };
    void Run(WaitDialog& wait, Input input, const Job& job);
    struct Started;
    void Conclude();

    WindowMessages& m_messages;
    QWidget& m_window;
    bool m_isWaiting = false;
    std::unique_ptr<Started> m_started;
};

}  // namespace studio
