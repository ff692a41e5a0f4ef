#pragma once

#include "CommandOutput.h"

#include <algorithm>
#include <optional>

namespace studio {

/// Commands that begin with one word and work on a file: `corvex library list FILE`. A table of
/// them has rows with a name, how many operands stand behind the file at least and at most, and a
/// function that does it.
struct CommandGroup {
    const char* word;
    const char* file;      ///< what must be named: "the file of a library"
    const char* operands;  ///< what must follow: "more names"
};

/// Null for none.
template <typename Rows>
[[nodiscard]] auto CommandNamed(const Rows& rows, const QString& name)
{
    const auto row = std::ranges::find_if(
        rows, [&name](const auto& each) { return name == QLatin1String(each.name); });
    return row == rows.end() ? nullptr : &*row;
}

/// What is wrong with the words of a command: its name, the file, the operands.
template <typename Rows>
[[nodiscard]] std::optional<QString> WrongWords(const CommandGroup& group, const Rows& rows,
                                                const QStringList& words)
{
    const QString word = QLatin1String(group.word);
    const auto* row = CommandNamed(rows, words.value(0));
    if (row == nullptr) {
        QStringList names;
        for (const auto& each : rows) {
            names << QLatin1String(each.name);
        }
        return Tr("%1 needs one of %2.").arg(word, names.join(QStringLiteral(", ")));
    }
    const QString command = word + u' ' + words.front();
    if (words.value(1).isEmpty()) {
        return Tr("%1 needs %2.").arg(command, Tr(group.file));
    }
    const qsizetype operands = words.size() - 2;
    if (operands < row->leastOperands || operands > row->mostOperands) {
        return row->mostOperands == 0 ? Tr("%1 takes one file.").arg(command)
                                      : Tr("%1 needs %2.").arg(command, Tr(group.operands));
    }
    return std::nullopt;
}

/// Does the job; whether all of it went well. What did not was printed.
template <typename Context, typename Rows, typename Job>
[[nodiscard]] bool RunFrom(const Rows& rows, const Job& job)
{
    CommandOutput output(job.json);
    Context context{job, output};
    output.Telling([&] { CommandNamed(rows, job.command)->run(context); });
    return !output.HasProblems();
}

}  // namespace studio
