#include "SimulationPictures.h"

#include "FileWriting.h"
#include "QtRegularFile.h"

#include <QCoreApplication>
#include <QDir>

namespace studio {

namespace {

std::string Made(const QString& folder)
{
    QDir().mkpath(folder);
    return QFile::encodeName(folder).toStdString();
}

}  // namespace

SimulationPictures::SimulationPictures(QString folder)
    : m_folder(std::move(folder)), m_use(Made(m_folder))
{
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
    m_use.WhileAlone([&] {
        QDir folder(m_folder);
        for (const QString& name : folder.entryList({QStringLiteral("~CVX*.jpg")}, QDir::Files)) {
            if (referredTo.count(folder.filePath(name).toStdString()) == 0) {
                folder.remove(name);
            }
        }
    });
}

}  // namespace studio
