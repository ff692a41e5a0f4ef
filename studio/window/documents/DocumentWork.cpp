#include "DocumentWork.h"

#include "WaitDialog.h"

#include <QEventLoop>
#include <QScopedValueRollback>

#include <exception>
#include <thread>

namespace studio {

DocumentWork::DocumentWork(QWidget& window) : QObject(&window), m_window(window) {}

void DocumentWork::Do(const QString& text, const std::function<void()>& job)
{
    const QScopedValueRollback busy(m_isBusy, true);
    WaitDialog wait(text, &m_window);
    wait.setCancelButton(nullptr);
    wait.setWindowFlag(Qt::WindowCloseButtonHint, false);
    wait.setValue(0);
    QEventLoop untilDone;
    std::exception_ptr failure;
    std::thread thread([&] {
        try {
            job();
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&untilDone, &QEventLoop::quit, Qt::QueuedConnection);
    });
    // It also comes back when the program quits, and then too the job is to end.
    untilDone.exec(QEventLoop::ExcludeUserInputEvents);
    thread.join();
    if (failure != nullptr) {
        std::rethrow_exception(failure);
    }
}

}  // namespace studio
