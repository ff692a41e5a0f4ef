#pragma once

#include <CorvexMaterial/Prompts.h>
#include <CorvexMaterial/Status.h>

#include <QObject>

#include <new>

class QLabel;
class QMainWindow;

namespace studio {

class EventLog;
class StatusMessage;

/// How the window tells what happens: on its status line, in a box, in the event log.
class WindowMessages : public QObject {
    Q_OBJECT

public:
    /// All of it outlives this object.
    WindowMessages(EventLog& log, CorvexMaterial::Prompts& prompts, QMainWindow& window);

    /// For a while, on the status line.
    void Show(const QString& text);
    /// There whenever nothing else is shown.
    void SetLasting(const QString& text);
    void ShowPosition(const QString& text);
    void Log(const QString& text);
    void ShowAndLog(const QString& text);
    /// A box that has to be closed.
    void Tell(const QString& text);
    void Inform(const QString& text);
    [[nodiscard]] bool Ask(const QString& question);

    /// The control has told the user about an error already; this says what it means for the work
    /// at hand.
    void Check(CorvexMaterial::Status status, const QString& what);
    /// Does the work and tells what it throws; whether there was nothing to tell.
    template <typename Work>
    bool Telling(const Work& work)
    {
        try {
            work();
        } catch (const std::bad_alloc&) {
            Tell(tr("There is not enough memory for it."));
            return false;
        } catch (const std::exception& error) {
            Tell(QString::fromUtf8(error.what()));
            return false;
        }
        return true;
    }

private:
    EventLog& m_log;
    CorvexMaterial::Prompts& m_prompts;
    StatusMessage* m_line;
    QLabel* m_position;
};

}  // namespace studio
