#include "platform/SearchPath.h"
#include "studio/app/CommandLine.h"
#include "studio/app/Studio.h"
#include "studio/import/ImportProcess.h"

#include <QStringList>

int main(int argc, char** argv)
{
    CorvexMaterial::DropRelativeSearchPaths();
    // Before the rest: the importing process has to be free of everything that a crash could
    // harm.
    if (const auto importExit = studio::RunImportIfAsked(argc, argv)) {
        return *importExit;
    }
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    return static_cast<int>(studio::RunStudio(argc, argv, studio::ReadCommandLine(arguments)));
}
