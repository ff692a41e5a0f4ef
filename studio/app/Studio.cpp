#include "studio/app/Studio.h"

#include "studio/app/EndRequests.h"
#include "studio/app/EventLog.h"
#include "studio/app/HeadlessRender.h"
#include "studio/app/MainWindow.h"
#include "studio/app/ShippedLibraries.h"
#include "studio/app/StudioDesktop.h"
#include "studio/app/StudioHost.h"
#include "studio/app/Theme.h"
#include "studio/app/Tour.h"
#include "studio/interchange/InterchangeFormats.h"
#include "studio/libraries/LibraryCommands.h"

#include <cstdio>

namespace studio {
namespace {

void Print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

void Tell(const QString& text)
{
    Print(stderr, QStringLiteral("corvex-studio: %1\n").arg(text));
}

ExitCode Conclude(const std::optional<QString>& failure)
{
    if (!failure) {
        return ExitCode::Done;
    }
    Tell(*failure);
    return ExitCode::Failed;
}

ExitCode RunWindow(const CommandLine& line)
{
    const EndRequests requests;
    const StudioProfile profile = UserProfile();
    const QStringList problems = DeliverLibraries(ShippedLibraryFolder(), profile.dataFolder);
    StudioDesktop desktop;
    StudioHost host(profile, desktop.OwnSettings());
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
    if (line.action == Action::ShowText) {
        Print(stdout, line.text);
        return ExitCode::Done;
    }
    if (line.action == Action::Refuse) {
        Print(stderr, QStringLiteral("corvex-studio: %1 See --help.\n").arg(line.text));
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
        return Conclude(DrawPicture(line.render, Tell));
    case Action::Export:
        return Conclude(ExportPicture(line.render, Tell));
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
