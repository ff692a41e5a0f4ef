#include "JobFolder.h"

#include <QDir>

namespace CorvexMaterial {

std::string JobFolder()
{
    const QString own = qEnvironmentVariable("temp");
    const QDir folder(own.isEmpty() ? QDir::tempPath() : own);
    return QDir::cleanPath(folder.absolutePath()).toStdString();
}

}  // namespace CorvexMaterial
