#include "Commands.h"

#include "ConvertCommand.h"
#include "HeadlessRender.h"
#include "ImportProcess.h"
#include "LibraryCommands.h"
#include "SceneCommands.h"
#include "SearchPath.h"
#include "ShaderCache.h"
#include "StudioProfile.h"
#include "Terminal.h"

#include <QGuiApplication>

namespace studio {
namespace {

ExitCode Conclude(bool isDone)
{
    return isDone ? ExitCode::Done : ExitCode::Failed;
}

/// The program's own text.
ExitCode PrintLines(const QString& text)
{
    CommandOutput output(false);
    for (const QString& line : text.trimmed().split(u'\n')) {
        output.Result({}, {line});
    }
    return Conclude(!output.HasProblems());
}

ExitCode RunJob(const CommandLine& line)
{
    switch (line.action) {
    case Action::Render:
        return DrawPicture(line.render);
    case Action::Export:
        return ExportPicture(line.render);
    case Action::Convert:
        return Convert(line.convert);
    case Action::Scene:
        return Conclude(RunSceneJob(line.scene));
    default:
        return Conclude(RunLibraryJob(line.library));
    }
}

}  // namespace

std::optional<int> BeginProgram(int argc, char** argv)
{
    CorvexMaterial::DropRelativeSearchPaths();
    CorvexMaterial::SecureShaderCache();
    return RunImportIfAsked(argc, argv);
}

QStringList ArgumentsOf(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

ExitCode RunCommand(int& argc, char** argv, const CommandLine& line)
{
    PrintMessagesOfToolkit();
    if (line.action == Action::ShowText) {
        return PrintLines(line.text);
    }
    if (line.action == Action::Refuse) {
        PrintProblem(QStringLiteral("%1 See --help.").arg(line.text));
        return ExitCode::WrongUsage;
    }
    for (int i = 1; i < argc; ++i) {
        const QString argument = QString::fromLocal8Bit(argv[i]);
        if (argument.toLocal8Bit() != argv[i]) {
            PrintProblem(
                QStringLiteral("\"%1\" is not UTF-8; give the file another name.").arg(argument));
            return ExitCode::WrongUsage;
        }
    }
    // Work without a window must not need a display either.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication application(argc, argv);
    QGuiApplication::setApplicationName(QLatin1String(kStudioName));
    QGuiApplication::setApplicationVersion(QStringLiteral(CORVEX_VERSION));
    return RunJob(line);
}

}  // namespace studio
