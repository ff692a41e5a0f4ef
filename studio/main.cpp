#include "Commands.h"
#include "Studio.h"

int main(int argc, char** argv)
{
    // Before the rest: the importing process has to be free of everything that a crash could harm.
    if (const auto importExit = studio::BeginProgram(argc, argv)) {
        return *importExit;
    }
    const studio::CommandLine line = studio::ReadCommandLine(studio::ArgumentsOf(argc, argv));
    const auto exit = line.action == studio::Action::OpenWindow
                          ? studio::RunStudio(argc, argv, line.model)
                          : studio::RunCommand(argc, argv, line);
    return static_cast<int>(exit);
}
