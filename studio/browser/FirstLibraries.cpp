#include "studio/browser/FirstLibraries.h"

#include "host/Status.h"
#include "studio/libraries/LibraryFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <array>

namespace studio {
namespace {

constexpr std::array kFirstLibraries{"Gems.cvm", "Gems.cvt"};

void ProvideLibrary(const QString& shipped, const QString& target)
{
    if (QFileInfo::exists(target) || (QFileInfo::exists(shipped) && QFile::copy(shipped, target))) {
        return;
    }
    try {
        const std::string path = target.toStdString();
        LibraryFile::Create(path, LibraryKindOf(path));
    } catch (const CorvexMaterial::Error&) {
        // The panel tells about a missing library when it opens it.
        return;
    }
}

}  // namespace

QString ShippedLibraryFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char* folder : {"Libraries", "../share/CorvexStudio/Libraries"}) {
        const QString path = QDir::cleanPath(program.filePath(QLatin1String(folder)));
        if (QFileInfo(path).isDir()) {
            return path;
        }
    }
    return {};
}

void LinkShippedImages(const QString& libraryFolder)
{
    const QString shipped = ShippedLibraryFolder();
    if (shipped.isEmpty()) {
        return;
    }
    for (const QFileInfo& images : QDir(shipped).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QFileInfo link(QDir(libraryFolder).filePath(images.fileName()));
        if (link.isSymLink() && link.symLinkTarget() != images.absoluteFilePath()) {
            QFile::remove(link.filePath());
        }
        // Fails where the user has a folder of this name, which is his then.
        QFile::link(images.absoluteFilePath(), link.filePath());
    }
}

void ProvideFirstLibraries(const QString& libraryFolder)
{
    QDir().mkpath(libraryFolder);
    const QDir shipped(ShippedLibraryFolder());
    for (const char* name : kFirstLibraries) {
        ProvideLibrary(shipped.filePath(QLatin1String(name)),
                       QDir(libraryFolder).filePath(QLatin1String(name)));
    }
    LinkShippedImages(libraryFolder);
}

}  // namespace studio
