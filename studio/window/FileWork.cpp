#include "FileWork.h"

#include "WaitDialog.h"
#include "WindowMessages.h"

#include <QEventLoop>
#include <QScopedValueRollback>

#include <exception>
#include <thread>
#include <utility>

namespace studio {
namespace {

/// The end is called from the event loop of the receiver.
template <typename End>
std::jthread Launched(FileWork::Job job, std::exception_ptr& failure, QObject& receiver, End end)
{
    return std::jthread([&, end, job = std::move(job)](const std::stop_token& stop) {
        try {
            job(stop);
        } catch (...) {
            failure = std::current_exception();
        }
        QMetaObject::invokeMethod(&receiver, end, Qt::QueuedConnection);
    });
}

}  // namespace

struct FileWork::Started {
    std::unique_ptr<WaitDialog> wait;
    std::function<void()> done;
    std::exception_ptr failure;
    std::jthread thread;  ///< the first to go
};

FileWork::FileWork(WindowMessages& messages, QWidget& window)
    : QObject(&window), m_messages(messages), m_window(window)
{
}

FileWork::~FileWork() = default;

void FileWork::Do(const QString& text, const std::function<void()>& job)
{
    WaitDialog wait(text, &m_window);
    wait.setCancelButton(nullptr);
    wait.setWindowFlag(Qt::WindowCloseButtonHint, false);
    Run(wait, Input::None, [&job](const std::stop_token&) { job(); });
}

void FileWork::DoOrCancel(const QString& text, const Job& job)
{
    WaitDialog wait(text, &m_window);
    Run(wait, Input::OfDialog, job);
    if (wait.wasCanceled()) {
        throw Cancelled();
    }
}

void FileWork::Run(WaitDialog& wait, Input input, const Job& job)
{
    const QScopedValueRollback waiting(m_isWaiting, true);
    wait.setValue(0);
    QEventLoop loop;
    bool isDone = false;
    std::exception_ptr failure;
    std::jthread thread = Launched(job, failure, loop, [&] {
        isDone = true;
        loop.quit();
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

void FileWork::Start(const QString& text, Job job, std::function<void()> done)
{
    if (m_started != nullptr) {
        m_messages.Tell(tr("Another file is still being written. Wait for it or cancel it."));
        return;
    }
    m_started = std::make_unique<Started>();
    m_started->done = std::move(done);
    m_started->wait = std::make_unique<WaitDialog>(text, &m_window);
    m_started->wait->LetWindowGoOn();
    m_started->wait->setValue(0);
    connect(m_started->wait.get(), &WaitDialog::canceled, this, &FileWork::Cancel);
    m_started->thread = Launched(std::move(job), m_started->failure, *this, [this] { Conclude(); });
}

void FileWork::Cancel()
{
    if (m_started != nullptr) {
        m_started->thread.request_stop();
    }
}

void FileWork::Conclude()
{
    const std::unique_ptr<Started> ended = std::exchange(m_started, nullptr);
    ended->thread.join();
    ended->wait.reset();
    if (ended->failure == nullptr) {
        m_messages.Telling(ended->done);
    } else if (ended->thread.get_stop_token().stop_requested()) {
        m_messages.Show(tr("Cancelled. Nothing was written."));
    } else {
        m_messages.Telling([&ended] { std::rethrow_exception(ended->failure); });
    }
}

}  // namespace studio
