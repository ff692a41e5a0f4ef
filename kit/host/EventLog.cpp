#include "EventLog.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace studio {
namespace {

QString FileIn(const QString& folder, const char* name)
{
    QDir().mkpath(folder);
    return folder + u'/' + QLatin1String(name);
}

QByteArray LineOf(std::string_view text)
{
    QByteArray line(text.data(), static_cast<qsizetype>(text.size()));
    line.replace('\n', ' ');
    line.replace('\r', ' ');
    return QDateTime::currentDateTime().toString(Qt::ISODateWithMs).toUtf8() + ' ' + line + '\n';
}

}  // namespace

BoundedLog::BoundedLog(QString path, qint64 limitBytes)
    : m_path(std::move(path)), m_limitBytes(limitBytes)
{
}

void BoundedLog::Append(std::string_view text)
{
    const QByteArray line = LineOf(text);
    MakeRoom(line.size());
    QFile file(m_path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        file.write(line);
    }
}

void BoundedLog::MakeRoom(qint64 incomingBytes) const
{
    if (QFileInfo(m_path).size() + incomingBytes <= m_limitBytes) {
        return;
    }
    const QString older = m_path + QStringLiteral(".1");
    QFile::remove(older);
    QFile::rename(m_path, older);
}

EventLog::EventLog(const QString& folder, qint64 limitBytes)
    : m_events(FileIn(folder, "events.log"), limitBytes),
      m_trace(FileIn(folder, "trace.log"), limitBytes)
{
}

void EventLog::RecordEvent(std::string_view text)
{
    m_events.Append(text);
}

void EventLog::DebugTrace(std::string_view text)
{
    m_trace.Append(text);
}

}  // namespace studio
