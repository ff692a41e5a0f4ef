#include "studio/raytrace/RaytracerPrograms.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStandardPaths>

namespace studio {
namespace {

bool IsProgram(const QString& path)
{
    const QFileInfo file(path);
    return file.isAbsolute() && file.isFile() && file.isExecutable();
}

}  // namespace

QString NamedProgram(const QString& text)
{
    return text.isEmpty() ? QString() : QStandardPaths::findExecutable(text);
}

QString FindPovRay(const QString& configured)
{
    const QString named = NamedProgram(configured);
    return named.isEmpty() ? NamedProgram(QStringLiteral("povray")) : named;
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
