#include "QtTemporaryFiles.h"

#include "FileWriting.h"
#include "JobFolder.h"
#include "TemporaryFolder.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace CorvexMaterial {

namespace {

/// One more than the largest process id of the system.
constexpr std::int64_t kProcessIds = 4194304 + 1;

[[noreturn]] void Fail(const char* reason, const std::string& path)
{
    const int error = errno;
    throw Error(Status::FileFailed, QCoreApplication::translate("TemporaryFiles", reason)
                                        .arg(QString::fromStdString(path), std::strerror(error))
                                        .toStdString());
}

/// Errors are in `errno`.
bool CreateNew(const std::string& path)
{
    const int file =
        ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, S_IRUSR | S_IWUSR);
    return file >= 0 && ::close(file) == 0;
}

constexpr const char* kLockExtension = ".lock";

/// Whatever has the number, in any extension but the lock's.
QFileInfoList FilesOf(const QString& stem)
{
    const QFileInfo number(stem);
    QFileInfoList files = QDir(number.path())
                              .entryInfoList({number.fileName() + ".*"},
                                             QDir::AllEntries | QDir::Hidden | QDir::System);
    files.removeIf([&](const QFileInfo& file) { return file.filePath() == stem + kLockExtension; });
    return files;
}

/// Other names, other users' files and what a link leads to are left alone.
void SweepJobFiles(const QString& folder)
{
    static const QRegularExpression kLock(QStringLiteral("^~CVX[0-9]+\\.lock$"));
    for (const QFileInfo& lock : QDir(folder).entryInfoList({"~CVX*.lock"}, QDir::Files)) {
        if (!kLock.match(lock.fileName()).hasMatch()) {
            continue;
        }
        const OwnerLock left = OwnerLock::TakeOver(lock.filePath().toStdString());
        if (!left.Held()) {
            continue;
        }
        for (const QFileInfo& file : FilesOf(lock.path() + u'/' + lock.completeBaseName())) {
            if (file.isFile() && !file.isSymLink() && file.ownerId() == ::geteuid()) {
                QFile::remove(file.filePath());
            }
        }
    }
}

}  // namespace

QtTemporaryFiles::QtTemporaryFiles()
{
    const std::string folder = Folder();
    SweepJobFiles(QString::fromStdString(folder));
    SweepTemporaryFolders(folder);
    if (folder != SystemTemporaryFolder()) {
        SweepTemporaryFolders(SystemTemporaryFolder());
    }
}

std::string QtTemporaryFiles::Folder()
{
    return JobFolder();
}

std::string QtTemporaryFiles::Claim(const std::string& extension)
{
    const std::string folder = Folder();
    while (true) {
        // Processes that run at the same time have different ids, hence different numbers.
        const std::int64_t number = ++m_claims * kProcessIds + ::getpid();
        std::string stem = folder + "/~CVX";
        stem.append(std::to_string(number));
        if (!FilesOf(QString::fromStdString(stem)).isEmpty()) {
            continue;
        }
        std::string path = stem + '.';
        path.append(extension);
        OwnerLock lock = OwnerLock::Make(stem + kLockExtension);
        if (lock.Held() && CreateNew(path)) {
            m_owned.emplace(stem, std::move(lock));
            return path;
        }
        if (errno != EEXIST) {
            Fail(QT_TRANSLATE_NOOP("TemporaryFiles", "No temporary file can be created in %1: %2"),
                 folder);
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
    ReleaseUnused();
}

void QtTemporaryFiles::ReleaseUnused()
{
    for (auto each = m_owned.begin(); each != m_owned.end();) {
        const bool used = !FilesOf(QString::fromStdString(each->first)).isEmpty();
        each = used ? std::next(each) : m_owned.erase(each);
    }
}

}  // namespace CorvexMaterial
