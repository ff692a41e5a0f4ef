#include "Commands.h"
#include "Studio.h"
#include "Terminal.h"
#include "Tour.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

studio::TourRequest RequestFrom(const QApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription("Walks through the studio and keeps pictures of it.");
    parser.addHelpOption();
    const QCommandLineOption chapter("chapter", "Only this chapter.", "name");
    parser.addOption(chapter);
    parser.addPositionalArgument("folder", "Where the pictures go.");
    parser.addPositionalArgument("model", "Shown at the end.", "[model]");
    parser.process(application);
    const QStringList names = parser.positionalArguments();
    if (names.isEmpty()) {
        parser.showHelp(static_cast<int>(studio::ExitCode::WrongUsage));
    }
    return {names.value(0), parser.value(chapter), names.value(1)};
}

}  // namespace

int main(int argc, char** argv)
{
    if (const auto importExit = studio::BeginProgram(argc, argv)) {
        return *importExit;
    }
    studio::PrintMessagesOfToolkit();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    static_cast<void>(studio::NameApplication(application));
    if (const auto failure = studio::RecordTour(RequestFrom(application))) {
        studio::PrintProblem(*failure);
        return static_cast<int>(studio::ExitCode::Failed);
    }
    return 0;
}
