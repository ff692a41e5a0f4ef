#include "studio/TemporaryFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>

#include <cerrno>
#include <csignal>

#include <unistd.h>

namespace studio {
namespace {

bool IsRunning(pid_t process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}

void RemoveLeftovers(const QString& stem)
{
    const QRegularExpression ours(u'^' + stem + QStringLiteral("-(\\d{1,9})-[A-Za-z]{6}$"));
    const QDir temporary(QDir::tempPath());
    for (const QFileInfo& entry : temporary.entryInfoList(
             {stem + QStringLiteral("-*")}, QDir::Dirs | QDir::NoSymLinks | QDir::Hidden)) {
        const auto name = ours.match(entry.fileName());
        if (name.hasMatch() && entry.ownerId() == geteuid() &&
            !IsRunning(name.captured(1).toInt())) {
            QDir(entry.filePath()).removeRecursively();
        }
    }
}

}  // namespace

QString TemporaryFolderFor(const QString& purpose)
{
    const QString stem = QStringLiteral("corvex-") + purpose;
    RemoveLeftovers(stem);
    return QStringLiteral("%1/%2-%3-XXXXXX")
        .arg(QDir::tempPath(), stem)
        .arg(QCoreApplication::applicationPid());
}

}  // namespace studio
