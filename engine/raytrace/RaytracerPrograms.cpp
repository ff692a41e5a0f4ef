#include "RaytracerPrograms.h"

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

QString FindProgram(const CorvexMaterial::ProgramFacts& facts, const QString& configured)
{
    const QString named = NamedProgram(configured);
    if (named.isEmpty() && facts.usualName.empty()) {
        return configured;  // so that the user hears which program is not there
    }
    return named.isEmpty() ? NamedProgram(QString::fromUtf8(facts.usualName)) : named;
}

QString FindLauncher(const CorvexMaterial::ProgramFacts& facts)
{
    const QString named = qEnvironmentVariable(facts.launcherVariable.data());
    const QString beside =
        QCoreApplication::applicationDirPath() + u'/' + QString::fromUtf8(facts.launcher);
    return IsProgram(named) ? named : IsProgram(beside) ? beside : QString();
}

QString PassedProgram(const CorvexMaterial::ProgramFacts& facts)
{
    return qEnvironmentVariable(facts.variable.data());
}

void PassProgram(const CorvexMaterial::ProgramFacts& facts, const QString& program)
{
    qputenv(facts.variable.data(), program.toLocal8Bit());
}

}  // namespace studio
