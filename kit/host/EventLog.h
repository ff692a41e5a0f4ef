#pragma once

#include <CorvexMaterial/CorvexDB.h>

#include <QString>

namespace studio {

/// A text file of time-stamped lines that never grows beyond twice its limit: a full file becomes
/// `<name>.1` and replaces the one before. A log that cannot be written is silently skipped; it
/// must not get in the way of the work that it describes.
class BoundedLog {
public:
    BoundedLog(QString path, qint64 limitBytes);
    void Append(std::string_view text);

private:
    void MakeRoom(qint64 incomingBytes) const;

    QString m_path;
    qint64 m_limitBytes;
};

/// The application's event log and its debug trace.
class EventLog : public CorvexDB::Diagnostics {
public:
    /// Creates the folder when needed.
    explicit EventLog(const QString& folder, qint64 limitBytes = qint64{512} * 1024);

    void RecordEvent(std::string_view text) override;
    void DebugTrace(std::string_view text) override;

private:
    BoundedLog m_events;
    BoundedLog m_trace;
};

}  // namespace studio
