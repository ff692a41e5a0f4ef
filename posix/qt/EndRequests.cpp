#include "EndRequests.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <chrono>

#include <fcntl.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};
constexpr std::chrono::milliseconds kBetweenTries{100};

/// A handler may do hardly more than write: the event loop reads at the other end.
std::array<int, 2> pipeEnds{-1, -1};

extern "C" void TellEventLoop(int /*signal*/)
{
    const int error = errno;
    [[maybe_unused]] const ssize_t told = ::write(pipeEnds[1], "", 1);
    errno = error;
}

}  // namespace

EndRequests::EndRequests()
{
    connect(&m_quitting, &QTimer::timeout, this, &EndRequests::Quit);
    qApp->installEventFilter(this);
    connect(qApp, &QGuiApplication::commitDataRequest, this, &EndRequests::SaveAsked,
            Qt::DirectConnection);
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    m_notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &EndRequests::Hear);
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction told {};
        told.sa_handler = TellEventLoop;
        told.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        ::sigaction(kSignals[i], nullptr, &m_before[i]);
        // Whoever started the program with nohup means it.
        if (m_before[i].sa_handler != SIG_IGN) {
            ::sigaction(kSignals[i], &told, nullptr);
        }
    }
}

EndRequests::~EndRequests()
{
    if (m_notifier != nullptr) {
        for (std::size_t i = 0; i < kSignals.size(); ++i) {
            ::sigaction(kSignals[i], &m_before[i], nullptr);
        }
        delete m_notifier;
        for (int& end : pipeEnds) {
            ::close(end);
            end = -1;
        }
    }
}

bool EndRequests::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Quit && watched == qApp) {
        Q_EMIT Asked();
    }
    return false;
}

void EndRequests::Hear()
{
    char told = 0;
    while (::read(pipeEnds[0], &told, 1) > 0) {
    }
    Quit();
    m_quitting.start(kBetweenTries);
}

/// A render that has to be stopped first, or a dialog that waits for something, refuses at first.
void EndRequests::Quit()
{
    if (m_triesLeft-- > 0) {
        QCoreApplication::quit();
    } else {
        QCoreApplication::exit();
    }
}

}  // namespace CorvexMaterial
