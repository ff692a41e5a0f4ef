#include "LibraryCommands.h"

#include "CommandContext.h"
#include "CommandTable.h"
#include "LibraryCommandTable.h"

namespace studio {

bool RunLibraryJob(const LibraryJob& job)
{
    return RunFrom<CommandContext>(kLibraryCommands, job);
}

}  // namespace studio
