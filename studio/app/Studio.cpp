#include "studio/app/Studio.h"

#include "studio/Terminal.h"
#include "studio/app/EndRequests.h"
#include "studio/app/EventLog.h"
#include "studio/app/HeadlessRender.h"
#include "studio/app/MainWindow.h"
#include "studio/app/ShippedLibraries.h"
#include "studio/app/StudioDesktop.h"
#include "studio/app/StudioHost.h"
#include "studio/app/Theme.h"
#include "studio/app/Tour.h"
#include "studio/import/InterchangeFormats.h"
#include "studio/libraries/LibraryCommands.h"

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

ExitCode RunWindow(const CommandLine& line)
{
    const EndRequests requests;
    const StudioProfile profile = UserProfile();
    const QStringList problems = DeliverLibraries(ShippedLibraryFolder(), profile.dataFolder);
    StudioDesktop desktop;
    StudioHost host(profile, desktop.OwnSettings(), desktop.Get().processes);
    for (const QString& problem : problems) {
        host.Log().RecordEvent(problem.toStdString());
    }
    MainWindow window(host, desktop.Get());
    desktop.SetWindow(&window);
    QObject::connect(&requests, &EndRequests::Asked, &window, [&] {
        desktop.SetMuted(true);
        window.QuitUnasked();
    });
    QObject::connect(&requests, &EndRequests::SaveAsked, &window, [&] {
        desktop.SetMuted(true);
        window.Save();
        desktop.SetMuted(false);
    });
    window.show();
    if (!line.model.isEmpty()) {
        window.OpenFile(line.model);
    }
    return QApplication::exec() == 0 ? ExitCode::Done : ExitCode::Failed;
}

// Work without a window must not need a display either.
void ChoosePlatform(Action action)
{
    if (action != Action::OpenWindow && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}

}  // namespace

ExitCode RunStudio(int& argc, char** argv, const CommandLine& line)
{
    PrintMessagesOfToolkit();
    if (line.action == Action::ShowText) {
        return Conclude(PrintLines(line.text));
    }
    if (line.action == Action::Refuse) {
        PrintProblem(QStringLiteral("%1 See --help.").arg(line.text));
        return ExitCode::WrongUsage;
    }
    ChoosePlatform(line.action);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QLatin1String(kStudioName));
    QApplication::setApplicationDisplayName(QStringLiteral("Corvex Studio"));
    QApplication::setApplicationVersion(QStringLiteral(CORVEX_VERSION));
    ApplyTheme(application);
    switch (line.action) {
    case Action::Render:
        return Conclude(DrawPicture(line.render, PrintProblem));
    case Action::Export:
        return Conclude(ExportPicture(line.render, PrintProblem));
    case Action::Library:
        return RunLibraryJob(line.library, InterchangeFormats()) ? ExitCode::Done
                                                                 : ExitCode::Failed;
    case Action::RecordTour:
        return Conclude(RecordTour({line.tourFolder, line.tourChapter, line.model}));
    default:
        return RunWindow(line);
    }
}

}  // namespace studio
