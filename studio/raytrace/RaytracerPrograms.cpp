#include "studio/raytrace/RaytracerPrograms.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace studio {
namespace {

bool IsProgram(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isExecutable();
}

}  // namespace

QString FindPovRay(const QString& configured)
{
    if (IsProgram(configured)) {
        return QFileInfo(configured).absoluteFilePath();
    }
    return QStandardPaths::findExecutable(QStringLiteral("povray"));
}

QString FindPovRayLauncher()
{
    const QString named = qEnvironmentVariable("CORVEX_POVRAY_LAUNCHER");
    const QString beside =
        QCoreApplication::applicationDirPath() + QStringLiteral("/corvex-povray");
    return IsProgram(named) ? named : IsProgram(beside) ? beside : QString();
}

void UsePovRay(const QString& program)
{
    qputenv("CORVEX_POVRAY", program.toLocal8Bit());
}

}  // namespace studio
