#include "LibraryCommands.h"

#include "CommandContext.h"
#include "LibraryCommandTable.h"

#include <algorithm>

namespace studio {

bool RunLibraryJob(const LibraryJob& job)
{
    CommandOutput output(job.json ? CommandOutput::Form::Json : CommandOutput::Form::Text);
    CommandContext context{job, output};
    const auto command = std::ranges::find_if(kLibraryCommands, [&](const LibraryCommandRow& row) {
        return job.command == QLatin1String(row.name);
    });
    try {
        command->run(context);
    } catch (const std::bad_alloc&) {
        output.Problem(QStringLiteral("There is not enough memory for it."));
    } catch (const std::exception& error) {
        output.Problem(QString::fromUtf8(error.what()));
    }
    return !output.HasProblems();
}

}  // namespace studio
