#include "SimulationPictures.h"

#include "FileWriting.h"
#include "QtRegularFile.h"

#include <QCoreApplication>
#include <QDir>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace studio {

SimulationPictures::SimulationPictures(QString folder)
    : m_folder(std::move(folder)),
      m_inUse(QDir().mkpath(m_folder) ? open(QFile::encodeName(m_folder).constData(),
                                             O_RDONLY | O_DIRECTORY | O_CLOEXEC)
                                      : -1)
{
    flock(m_inUse, LOCK_SH | LOCK_NB);
}

SimulationPictures::~SimulationPictures()
{
    if (m_inUse >= 0) {
        close(m_inUse);
    }
}

std::string SimulationPictures::Keep(const std::string& picture)
{
    const QDir folder(m_folder);
    QString kept;
    int number = 0;
    do {
        ++number;
        kept = folder.filePath(
            QStringLiteral("~CVX%1-%2.jpg").arg(QCoreApplication::applicationPid()).arg(number));
    } while (QFileInfo::exists(kept));
    // Temporary files are often on another disk: to move it would be to copy it, unchecked.
    const QString made = QString::fromStdString(picture);
    CorvexMaterial::WriteFile(kept.toStdString(), CorvexMaterial::ReadRegular(
                                                      made, CorvexMaterial::kMostPictureFileBytes));
    QFile::remove(made);
    return kept.toStdString();
}

void SimulationPictures::KeepOnly(const std::set<std::string>& referredTo) const
{
    // The lock cannot become this program's own while another holds it.
    if (flock(m_inUse, LOCK_EX | LOCK_NB) != 0) {
        flock(m_inUse, LOCK_SH | LOCK_NB);
        return;
    }
    QDir folder(m_folder);
    for (const QString& name : folder.entryList({QStringLiteral("~CVX*.jpg")}, QDir::Files)) {
        if (referredTo.count(folder.filePath(name).toStdString()) == 0) {
            folder.remove(name);
        }
    }
    flock(m_inUse, LOCK_SH | LOCK_NB);
}

}  // namespace studio
