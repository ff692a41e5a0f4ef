#pragma once

#include <QObject>
#include <QTimer>

#include <array>
#include <csignal>

class QSocketNotifier;

namespace CorvexMaterial {

/// Hears that the program is to end from outside: SIGTERM, SIGINT and SIGHUP, and the end of the
/// user's session. `Asked` comes first, then the application quits, as it does by its menu. A
/// second signal of a kind ends the program as if this object were not there. At most one at a
/// time.
class EndRequests : public QObject {
    Q_OBJECT

public:
    EndRequests();
    ~EndRequests() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// From now on nobody is there to answer a question.
    void Asked();
    /// What would be lost is to be saved. The program may well go on.
    void SaveAsked();

private:
    void Hear();
    void Quit();

    std::array<struct sigaction, 3> m_before{};
    QSocketNotifier* m_notifier = nullptr;
    QTimer m_quitting;
    int m_triesLeft = 50;
};

}  // namespace CorvexMaterial
