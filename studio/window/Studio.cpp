#include "Studio.h"

#include "EndRequests.h"
#include "EventLog.h"
#include "MainWindow.h"
#include "SettingNames.h"
#include "ShippedLibraries.h"
#include "StudioDesktop.h"
#include "StudioHost.h"
#include "StudioSettings.h"
#include "Terminal.h"
#include "Themes.h"
#include <CorvexMaterial/Translations.h>

namespace studio {
namespace {

ExitCode RunWindow(const QString& model, Themes& themes)
{
    const CorvexMaterial::EndRequests requests;
    const StudioProfile profile = UserProfile();
    const QStringList problems = DeliverLibraries(ShippedLibraryFolder(), profile.dataFolder);
    StudioDesktop desktop;
    StudioHost host(profile, desktop.OwnSettings(), desktop.Get().processes);
    themes.Choose(host.Settings().Number(kThemeSetting, 0));
    for (const QString& problem : problems) {
        host.Log().RecordEvent(problem.toStdString());
    }
    MainWindow window(host, desktop.Get());
    desktop.SetWindow(&window);
    QObject::connect(&window, &MainWindow::ThemeWanted, &themes, &Themes::Choose);
    QObject::connect(&window, &MainWindow::DesktopChanged, &themes, &Themes::LookAgain);
    QObject::connect(&requests, &CorvexMaterial::EndRequests::Asked, &window, [&] {
        desktop.SetMuted(true);
        window.QuitUnasked();
    });
    QObject::connect(&requests, &CorvexMaterial::EndRequests::SaveAsked, &window, [&] {
        desktop.SetMuted(true);
        window.Save();
        desktop.SetMuted(false);
    });
    window.show();
    if (!model.isEmpty()) {
        window.OpenFile(model);
    }
    window.OfferRecovery();
    window.OfferFirstSteps();
    return QApplication::exec() == 0 ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace

Themes& NameApplication(QApplication& application)
{
    QApplication::setApplicationName(QLatin1String(kStudioName));
    QApplication::setApplicationVersion(QStringLiteral(CORVEX_VERSION));
    CorvexMaterial::InstallTranslations();
    return *new Themes(application);
}

ExitCode RunStudio(int& argc, char** argv, const QString& model)
{
    PrintMessagesOfToolkit();
    QApplication application(argc, argv);
    return RunWindow(model, NameApplication(application));
}

}  // namespace studio
