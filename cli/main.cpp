#include "Commands.h"

int main(int argc, char** argv)
{
    // Before the rest: the importing process has to be free of everything that a crash could harm.
    if (const auto importExit = studio::BeginProgram(argc, argv)) {
        return *importExit;
    }
    QStringList arguments = studio::ArgumentsOf(argc, argv);
    if (arguments.isEmpty()) {
        arguments << QStringLiteral("--help");
    }
    studio::CommandLine line = studio::ReadCommandLine(arguments);
    if (line.action == studio::Action::OpenWindow) {
        line.action = studio::Action::Refuse;
        line.text = QStringLiteral("There is no command \"%1\"; corvex-studio opens files.")
                        .arg(arguments.front());
    }
    return static_cast<int>(studio::RunCommand(argc, argv, line));
}
