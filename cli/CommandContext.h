#pragma once

#include "CommandOutput.h"
#include "LibraryCommandLine.h"
#include "LibraryFile.h"
#include "UserMarks.h"

#include <CorvexMaterial/Status.h>

#include <span>

namespace studio {

/// What every library command works with.
struct CommandContext {
    const LibraryJob& job;
    CommandOutput& output;
};

[[nodiscard]] inline LibraryKind KindIn(const LibraryJob& job)
{
    return LibraryKindOf(job.library.toStdString());
}

/// The library of the job. A copy that its first change leaves is told.
[[nodiscard]] LibraryFile OpenIn(const LibraryJob& job);

/// Of who runs the program.
[[nodiscard]] UserMarks OwnMarks();

/// What the job's search finds, of that what its shard has.
[[nodiscard]] std::vector<std::int32_t> SelectedIn(LibraryFile& library, const LibraryJob& job);

/// One entry that fails does not keep the others from being worked on.
template <typename Work>
void ForEachSelected(LibraryFile& library, CommandContext& context, Work work)
{
    const auto indexes = SelectedIn(library, context.job);
    qsizetype done = 0;
    for (const std::int32_t index : indexes) {
        try {
            work(index);
        } catch (const CorvexMaterial::Error& error) {
            context.output.Problem(QString::fromUtf8(error.what()));
        }
        context.output.Progress(++done, static_cast<qsizetype>(indexes.size()));
    }
}

/// What is wrong with one entry.
void TellProblems(LibraryFile& library, std::int32_t index,
                  const std::vector<std::string>& problems, CommandContext& context);

/// "3 entries added." and the like: the text counts.
[[nodiscard]] QString CountText(const char* text, std::size_t count);

}  // namespace studio
