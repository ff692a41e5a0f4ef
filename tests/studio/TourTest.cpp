#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

int RunTour(const QStringList& arguments, const QString& configuration)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", configuration);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(STUDIO_PROGRAM), arguments);
    process.waitForFinished(240000);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

TEST(Tour, ShowsEveryStepAndLeavesTheUsersSettingsAlone)
{
    const QTemporaryDir pictures;
    const QTemporaryDir configuration;
    ASSERT_EQ(RunTour({"--tour", pictures.path()}, configuration.path()), 0);
    const QStringList names = QDir(pictures.path()).entryList({"*.png"});
    EXPECT_GE(names.size(), 12);
    for (const QString& name : names) {
        EXPECT_FALSE(QImage(pictures.filePath(name)).isNull()) << name.toStdString();
    }
    const QImage large(pictures.filePath("21-at-200-per-cent.png"));
    EXPECT_EQ(large.size(), QSize(2000, 1400));
    EXPECT_FALSE(QDir(configuration.path()).exists("Corvex"));
}

TEST(Tour, AStepThatFailsEndsItWithOne)
{
    const QTemporaryDir pictures;
    const QTemporaryDir configuration;
    EXPECT_EQ(RunTour({"missing.obj", "--tour", pictures.path(), "--chapter", "large"},
                      configuration.path()),
              1);
    EXPECT_EQ(RunTour({"--tour", pictures.path(), "--chapter", "none"}, configuration.path()), 1);
}

}  // namespace
