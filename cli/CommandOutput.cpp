#include "CommandOutput.h"

#include "Terminal.h"

#include <QJsonDocument>

namespace studio {
namespace {

constexpr qint64 kProgressMilliseconds = 1000;

}  // namespace

void CommandOutput::Result(const QJsonObject& json, const QStringList& columns)
{
    if (m_isLost || (!m_isJson && columns.isEmpty())) {
        return;
    }
    const QString compact = QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
    const auto failure = PrintResult(m_isJson ? QStringList{compact} : columns);
    if (failure) {
        m_isLost = true;
        Problem(*failure);
    }
}

void CommandOutput::Problem(const QString& text)
{
    ++m_problems;
    PrintProblem(text);
}

void CommandOutput::Remark(const QString& text)
{
    PrintProblem(text);
}

void CommandOutput::Progress(qsizetype done, qsizetype all)
{
    if (m_sinceProgress.elapsed() >= kProgressMilliseconds) {
        PrintProgress(QStringLiteral("%1/%2").arg(done).arg(all));
        m_sinceProgress.restart();
    }
}

}  // namespace studio
