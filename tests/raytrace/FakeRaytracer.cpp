#include "tests/raytrace/FakeRaytracer.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace CorvexTest {

FakeRaytracer::FakeRaytracer(ControlRig& rig)
    : m_folder(m_dir.filePath(QStringLiteral("t \"e\" #m$p; Ω"))), m_oldTemp(qgetenv("temp")),
      m_rig(rig)
{
    QDir().mkpath(m_folder);
    qputenv("temp", m_folder.toUtf8());
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    picture.save(m_dir.filePath("picture.bmp"));
    rig.platform.processes.passOn = &m_desktop.Get().processes;
    rig.platform.temporaryFiles.passOn = &m_desktop.Get().temporaryFiles;
    rig.platform.settings.PutTip("POVRayConfiguration", "0");
    rig.platform.settings.PutTip("Simulation Texture", "0");
}

FakeRaytracer::~FakeRaytracer()
{
    m_rig.platform.processes.passOn = nullptr;
    m_rig.platform.temporaryFiles.passOn = nullptr;
    qputenv("temp", m_oldTemp);
}

void FakeRaytracer::Runs(const QString& commands)
{
    const QString path = m_dir.filePath("a raytracer");
    QFile script(path);
    script.open(QIODevice::WriteOnly | QIODevice::Truncate);
    script.write(QStringLiteral("#!/bin/sh\n"
                                "[ \"$1 $2 $#\" = '/exit /nr 3' ] || exit 9\n"
                                "ini=$3\n"
                                "out=$(sed -n 's/^Output_File_Name=//p' \"$ini\")\n"
                                "picture='%1'\n%2\n")
                     .arg(m_dir.filePath("picture.bmp"), commands)
                     .toUtf8());
    script.close();
    script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_rig.host.applicationState.povRayProgram = path.toStdString();
}

QStringList FakeRaytracer::Leftovers() const
{
    return QDir(m_folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}

}  // namespace CorvexTest
