#include "FakeRaytracer.h"

namespace CorvexTest {

FakeRaytracer::FakeRaytracer(ControlRig& rig)
    : m_folder(m_dir.filePath(QStringLiteral("t \"e\" #m$p; Ω"))), m_oldTemp(qgetenv("temp")),
      m_rig(rig)
{
    QDir().mkpath(m_folder);
    qputenv("temp", m_folder.toUtf8());
    rig.platform.processes.passOn = &m_desktop.Get().processes;
    rig.platform.temporaryFiles.passOn = &m_desktop.Get().temporaryFiles;
}

FakeRaytracer::~FakeRaytracer()
{
    m_rig.platform.processes.passOn = nullptr;
    m_rig.platform.temporaryFiles.passOn = nullptr;
    qputenv("temp", m_oldTemp);
}

std::string FakeRaytracer::Script(const QString& opening, const QString& commands) const
{
    const QString path = m_dir.filePath("a raytracer");
    QFile script(path);
    script.open(QIODevice::WriteOnly | QIODevice::Truncate);
    script.write(QStringLiteral("#!/bin/sh\n"
                                "make() {\n"
                                "  printf 'P6 %d %d 255\\n' $1 $2\n"
                                "  head -c $(($1 * $2 * 3)) /dev/zero | tr '\\0' d\n"
                                "}\n%1\n"
                                "picture=$PWD/good\n"
                                "make $width $height > good\n%2\n")
                     .arg(opening, commands)
                     .toUtf8());
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path.toStdString();
}

void FakeRaytracer::Runs(const QString& commands)
{
    m_rig.host.applicationState.povRayProgram =
        Script(QStringLiteral("[ \"$1 $2 $#\" = '/exit /nr 3' ] || exit 9\n"
                              "[ \"$(stat -c %a .) $(ls -A)\" = '700 .owner' ] || exit 8\n"
                              "ini=$3\n"
                              "width=$(sed -n 's/^Width=//p' \"$ini\")\n"
                              "height=$(sed -n 's/^Height=//p' \"$ini\")\n"
                              "out=$(sed -n 's/^Output_File_Name=//p' \"$ini\")"),
               commands);
}

void FakeRaytracer::RunsAsRenderMan(const QString& commands)
{
    m_rig.host.applicationState.raytracer = CorvexDB::Raytracer::RenderMan;
    m_rig.platform.settings.Put(
        "RenderManLocation",
        Script(QStringLiteral("[ \"$1 $2 $3 $#\" = '-res 256 256 4' ] || exit 9\n"
                              "[ \"$(stat -c %a .) $(ls -A)\" = '700 .owner' ] || exit 8\n"
                              "scene=$4 width=$2 height=$3\n"
                              "out=${scene%.rib}.bmp"),
               commands));
}

QStringList FakeRaytracer::Leftovers() const
{
    return QDir(m_folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

}  // namespace CorvexTest
