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
    WaitDialog wait(text, &m_window);
    wait.setCancelButton(nullptr);
    wait.setWindowFlag(Qt::WindowCloseButtonHint, false);
    Run(wait, Input::None, [&job](const std::stop_token&) { job(); });
}

void DocumentWork::DoOrCancel(const QString& text,
                              const std::function<void(const std::stop_token&)>& job)
{
    WaitDialog wait(text, &m_window);
    Run(wait, Input::OfDialog, job);
    if (wait.wasCanceled()) {
        throw Cancelled();
    }
}

void DocumentWork::Run(WaitDialog& wait, Input input,
                       const std::function<void(const std::stop_token&)>& job)
{
    const QScopedValueRollback busy(m_isBusy, true);
    wait.setValue(0);
    QEventLoop loop;
    bool isDone = false;
    std::exception_ptr failure;
    std::jthread thread([&](const std::stop_token& stop) {
        try {
            job(stop);
        } catch (...) {
            failure = std::current_exception();
        }
        const auto end = [&] {
            isDone = true;
            loop.quit();
        };
        QMetaObject::invokeMethod(&loop, end, Qt::QueuedConnection);
    });
    connect(&wait, &QProgressDialog::canceled, &loop, [&thread] { thread.request_stop(); });
    connect(&wait, &WaitDialog::ShownOrHidden, &loop, &QEventLoop::quit);
    // It is the dialog that keeps the user off the window. The program may quit meanwhile, and then
    // too the job is to end.
    for (int ended = 0; !isDone && ended == 0;) {
        const bool takesInput = input == Input::OfDialog && wait.isVisible();
        ended = loop.exec(takesInput ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents);
    }
    thread.join();
    if (failure != nullptr && !wait.wasCanceled()) {
        std::rethrow_exception(failure);
    }
}

}  // namespace studio
