#include "studio/libraries/CommandOutput.h"

#include <QJsonDocument>

#include <cstdio>

namespace studio {
namespace {

constexpr qint64 kProgressMilliseconds = 1000;

void PrintLine(std::FILE* stream, const QByteArray& line)
{
    std::fputs((line + '\n').constData(), stream);
    std::fflush(stream);
}

}  // namespace

void CommandOutput::Result(const QJsonObject& json, const QString& text)
{
    if (m_form == Form::Json) {
        PrintLine(stdout, QJsonDocument(json).toJson(QJsonDocument::Compact));
    } else if (!text.isEmpty()) {
        PrintLine(stdout, text.toLocal8Bit());
    }
}

void CommandOutput::Problem(const QString& text)
{
    ++m_problems;
    PrintLine(stderr, "corvex-studio: " + text.toLocal8Bit());
}

void CommandOutput::Progress(qsizetype done, qsizetype all)
{
    if (m_sinceProgress.elapsed() >= kProgressMilliseconds) {
        PrintLine(stderr, QStringLiteral("%1/%2").arg(done).arg(all).toLocal8Bit());
        m_sinceProgress.restart();
    }
}

}  // namespace studio
