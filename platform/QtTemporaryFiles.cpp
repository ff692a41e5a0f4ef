#include "platform/QtTemporaryFiles.h"

#include "host/Status.h"
#include "platform/FileWriting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

/// One more than the largest process id of the system.
constexpr std::int64_t kProcessIds = 4194304 + 1;

enum class Creation { Done, NameTaken };

[[noreturn]] void Fail(const char* reason, const std::string& path)
{
    const int error = errno;
    throw Error(Status::FileFailed, QCoreApplication::translate("TemporaryFiles", reason)
                                        .arg(QString::fromStdString(path), std::strerror(error))
                                        .toStdString());
}

Creation CreateNew(const std::string& path, const std::string& folder)
{
    const int file =
        ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0) {
        ::close(file);
        return Creation::Done;
    }
    if (errno == EEXIST) {
        return Creation::NameTaken;
    }
    Fail(QT_TRANSLATE_NOOP("TemporaryFiles", "No temporary file can be created in %1: %2"), folder);
}

bool NumberIsTaken(const std::string& folder, const std::string& name)
{
    const QStringList sameNumber{QString::fromStdString(name) + ".*"};
    return !QDir(QString::fromStdString(folder))
                .entryList(sameNumber, QDir::AllEntries | QDir::Hidden | QDir::System)
                .isEmpty();
}

}  // namespace

std::string QtTemporaryFiles::Folder()
{
    const QString own = qEnvironmentVariable("temp");
    // Absolute, so that a path handed out stays good when the working folder changes.
    const QDir folder(own.isEmpty() ? QDir::tempPath() : own);
    return QDir::cleanPath(folder.absolutePath()).toStdString();
}

std::string QtTemporaryFiles::Claim(const std::string& extension)
{
    const std::string folder = Folder();
    while (true) {
        // Processes that run at the same time have different ids, hence different numbers.
        const std::int64_t number = ++m_claims * kProcessIds + ::getpid();
        const std::string name = "~CVX" + std::to_string(number);
        const std::string path = folder + '/' + name + '.' + extension;
        if (!NumberIsTaken(folder, name) && CreateNew(path, folder) == Creation::Done) {
            return path;
        }
    }
}

void QtTemporaryFiles::Write(const std::string& path, const std::string& text)
{
    WriteFile(path, text, Lifetime::Temporary);
}

bool QtTemporaryFiles::HasContent(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    return file.isFile() && file.size() > 0;
}

void QtTemporaryFiles::Remove(const std::string& path)
{
    if (::unlink(path.c_str()) != 0 && errno != ENOENT) {
        Fail(QT_TRANSLATE_NOOP("TemporaryFiles", "The temporary file %1 cannot be removed: %2"),
             path);
    }
}

}  // namespace CorvexMaterial
