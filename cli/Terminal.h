#pragma once

#include <QStringList>

#include <optional>

namespace studio {

// The one place where the program prints. Nothing in a name from a file acts on a terminal.

/// A line on standard output, of columns with tabs between them. Gives back why it could not be
/// written, if so.
[[nodiscard]] std::optional<QString> PrintResult(const QStringList& columns);

/// What went wrong, on standard error. Lines after the first are set in.
void PrintProblem(const QString& text);

/// How far a long work is, on standard error.
void PrintProgress(const QString& text);

/// What the toolkit and its readers of files have to say goes the same way.
void PrintMessagesOfToolkit();

}  // namespace studio
