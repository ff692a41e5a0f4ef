#include "Terminal.h"

#include "TerminalText.h"
#include "Tr.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace studio {
namespace {

bool PrintLine(std::FILE* stream, const QStringList& columns)
{
    std::string line;
    for (const QString& column : columns) {
        line += (line.empty() ? "" : "\t") + CorvexMaterial::TerminalText(column.toStdString());
    }
    line += '\n';
    return std::fwrite(line.data(), 1, line.size(), stream) == line.size() &&
           std::fflush(stream) == 0;
}

void PrintMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    PrintLine(stderr, {qFormatLogMessage(type, context, message)});
}

}  // namespace

std::optional<QString> PrintResult(const QStringList& columns)
{
    if (PrintLine(stdout, columns)) {
        return std::nullopt;
    }
    const int reason = errno;
    return Tr("The result cannot be written: %1")
        .arg(QString::fromLocal8Bit(std::strerror(reason)));
}

void PrintProblem(const QString& text)
{
    QString before = QStringLiteral("corvex: ");
    for (const QString& line : text.split(u'\n')) {
        PrintLine(stderr, {before + line});
        before = QStringLiteral("  ");
    }
}

void PrintProgress(const QString& text)
{
    PrintLine(stderr, {text});
}

void PrintMessagesOfToolkit()
{
    qInstallMessageHandler(PrintMessage);
}

}  // namespace studio
