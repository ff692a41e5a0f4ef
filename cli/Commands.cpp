#include "Commands.h"

#include "ConvertCommand.h"
#include "HeadlessRender.h"
#include "ImportProcess.h"
#include "LibraryCommands.h"
#include "SceneCommands.h"
#include "SearchPath.h"
#include "StudioProfile.h"
#include "Terminal.h"

#include <QGuiApplication>

namespace studio {
namespace {

ExitCode Conclude(const std::optional<QString>& failure)
{
    if (!failure) {
        return ExitCode::Done;
    }
    PrintProblem(*failure);
    return ExitCode::Failed;
}

/// What the picture goes without is told.
ExitCode Conclude(decltype(DrawPicture)& make, const RenderJob& job)
{
    bool isWhole = true;
    const ExitCode made = Conclude(make(job, [&isWhole](const QString& text) {
        isWhole = false;
        PrintProblem(text);
    }));
    return job.strict && !isWhole ? ExitCode::Failed : made;
}

/// The program's own text.
std::optional<QString> PrintLines(const QString& text)
{
    for (const QString& line : text.trimmed().split(u'\n')) {
        if (auto failure = PrintResult({line})) {
            return failure;
        }
    }
    return std::nullopt;
}

ExitCode RunJob(const CommandLine& line)
{
    switch (line.action) {
    case Action::Render:
        return Conclude(DrawPicture, line.render);
    case Action::Export:
        return Conclude(ExportPicture, line.render);
    case Action::Convert:
        return Convert(line.convert);
    case Action::Scene:
        return RunSceneJob(line.scene) ? ExitCode::Done : ExitCode::Failed;
    default:
        return RunLibraryJob(line.library) ? ExitCode::Done : ExitCode::Failed;
    }
}

}  // namespace

std::optional<int> BeginProgram(int argc, char** argv)
{
    CorvexMaterial::DropRelativeSearchPaths();
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
        return Conclude(PrintLines(line.text));
    }
    if (line.action == Action::Refuse) {
        PrintProblem(QStringLiteral("%1 See --help.").arg(line.text));
        return ExitCode::WrongUsage;
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
