#include "QtSettingsStore.h"

#include "FileWriting.h"
#include "QtRegularFile.h"
#include "RegularFile.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <atomic>

namespace CorvexMaterial {

namespace {

constexpr int kLockMilliseconds = 5000;
constexpr std::int64_t kMostSettingsBytes = 64 << 20;

[[noreturn]] void Fail(const char* reason, const QString& path, const QString& cause = {})
{
    QString text = QCoreApplication::translate("SettingsStore", reason);
    text.replace(QStringLiteral("%1"), QDir::toNativeSeparators(path));
    throw Error(Status::FileFailed, text.replace(QStringLiteral("%2"), cause).toStdString());
}

/// A name in a key may hold anything; a slash in it begins no section.
QString KeyOf(const SettingAddress& address)
{
    QString key = QString::fromStdString(address.key);
    key.replace('%', QLatin1String("%25")).replace('/', QLatin1String("%2F"));
    return QString::fromStdString(address.section) + '/' + key;
}

/// An unquoted comma in a file edited by hand reads as a list.
QString TextOf(const QVariant& value)
{
    return value.canConvert<QString>() && value.metaType().id() != QMetaType::QStringList
               ? value.toString()
               : value.toStringList().join(',');
}

bool IsDamaged(QSettings& file)
{
    // Sections are parsed when they are first asked for.
    static_cast<void>(file.allKeys());
    return file.status() == QSettings::FormatError;
}

/// Returns the path of the copy.
QString KeepCopy(const QString& path, const QByteArray& content)
{
    for (int number = 1; number < 1000; ++number) {
        QString copy = QStringLiteral("%1.damaged%2").arg(path).arg(number);
        if (!QFile::exists(copy)) {
            WriteFile(copy.toStdString(), content);
            return copy;
        }
    }
    Fail(
        QT_TRANSLATE_NOOP(
            "SettingsStore",
            "The settings file %1 is damaged and no copy of it can be kept; it was left as it is."),
        path);
}

/// Where the toolkit makes a file first: what it cannot write to a full disk it does not notice. A
/// folder beside the file, so that nothing else has to have room.
class Workshop {
public:
    explicit Workshop(const QString& path) : m_folder(path + QStringLiteral(".new"))
    {
        m_folder.removeRecursively();
        MakeFolder(m_folder.path().toStdString());
    }
    ~Workshop() { m_folder.removeRecursively(); }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    /// Never the same, for the toolkit remembers what it read under a name.
    [[nodiscard]] QString NewPath() const
    {
        static std::atomic<int> count = 0;
        return m_folder.filePath(QString::number(++count));
    }

private:
    QDir m_folder;
};

QByteArray ContentOf(const QString& path)
{
    return QFile::exists(path) ? ReadRegular(path, kMostSettingsBytes) : QByteArray();
}

bool HoldsAll(const QSettings& settings, const QSettings& wanted)
{
    const QStringList keys = wanted.allKeys();
    return settings.allKeys() == keys && std::ranges::all_of(keys, [&](const QString& key) {
               return settings.value(key) == wanted.value(key);
           });
}

/// The file's content once these settings are in it.
QByteArray ContentWith(QSettings& draft, const std::map<QString, QString>& settings,
                       const Workshop& workshop)
{
    for (const auto& [key, value] : settings) {
        draft.setValue(key, value);
    }
    draft.sync();
    const QString written = workshop.NewPath();
    const bool isWhole = draft.status() != QSettings::AccessError &&
                         QFile::rename(draft.fileName(), written) &&
                         HoldsAll(QSettings(written, QSettings::IniFormat), draft);
    return isWhole ? ContentOf(written) : QByteArray();
}

/// The toolkit takes a file of the same size and time for the one that it knows.
void PutInPlace(const QString& path, const QByteArray& content)
{
    const QDateTime before = QFileInfo(path).lastModified();
    WriteFile(path.toStdString(), content);
    QFile file(path);
    if (QFileInfo(path).lastModified() == before && file.open(QIODevice::ReadWrite)) {
        file.setFileTime(before.addMSecs(1), QFileDevice::FileModificationTime);
    }
}

/// Why it is not read, though it is there; the toolkit would open whatever has this name.
std::string Obstacle(const QString& path)
{
    const RegularFile file(path.toStdString(), kMostSettingsBytes);
    return file.IsMissing() ? std::string() : file.Obstacle();
}

void CheckReplaceable(const QString& path)
{
    if (const std::string obstacle = Obstacle(path); !obstacle.empty()) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file %1 cannot be read: %2."), path,
             QString::fromStdString(obstacle));
    }
    const QFileInfo file(path);
    if (file.exists() && !(file.isFile() && file.isReadable() && file.isWritable())) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file %1 cannot be read and written."),
             path);
    }
    if (!QDir().mkpath(file.absolutePath())) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore",
                               "The folder of the settings file %1 cannot be created."),
             path);
    }
}

}  // namespace

QtSettingsStore::QtSettingsStore(const QString& folder) : m_folder(folder) {}

QtSettingsStore::~QtSettingsStore()
{
    for (auto& [name, application] : m_applications) {
        try {
            PutOnDisk(application);
        } catch (const Error&) {
            continue;
        }
    }
}

QString QtSettingsStore::UserFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/Corvex";
}

std::optional<std::string> QtSettingsStore::Read(const SettingAddress& address)
{
    const Application& application = Opened(address.application);
    const QString key = KeyOf(address);
    if (const auto unwritten = application.unwritten.find(key);
        unwritten != application.unwritten.end()) {
        return unwritten->second.toStdString();
    }
    const QVariant value = application.onDisk ? application.onDisk->value(key) : QVariant();
    return value.isValid() ? std::optional(TextOf(value).toStdString()) : std::nullopt;
}

void QtSettingsStore::Write(const SettingAddress& address, const std::string& value)
{
    Opened(address.application).unwritten[KeyOf(address)] = QString::fromStdString(value);
}

void QtSettingsStore::Flush(const std::string& application)
{
    PutOnDisk(Opened(application));
}

QtSettingsStore::Application& QtSettingsStore::Opened(const std::string& application)
{
    Application& opened = m_applications[application];
    if (!opened.onDisk) {
        // The name is the host's to choose: a separator in it must not lead to another folder.
        const QByteArray name =
            QUrl::toPercentEncoding(QString::fromStdString(application), " ()+,;=@!&'$[]");
        opened.path = m_folder + '/' + QString::fromLatin1(name) + ".ini";
        if (Obstacle(opened.path).empty()) {
            opened.onDisk = std::make_unique<QSettings>(opened.path, QSettings::IniFormat);
            opened.damaged = IsDamaged(*opened.onDisk);
        }
    }
    return opened;
}

void QtSettingsStore::PutOnDisk(Application& application)
{
    if (application.unwritten.empty()) {
        return;
    }
    CheckReplaceable(application.path);
    // The toolkit's own. Without room for it there is none for the file either, which then says so.
    QLockFile lock(application.path + QStringLiteral(".lock"));
    static_cast<void>(lock.tryLock(kLockMilliseconds));
    const Workshop workshop(application.path);
    const QByteArray before = ContentOf(application.path);
    const QString path = workshop.NewPath();
    WriteFile(path.toStdString(), before, Lifetime::Temporary);
    QSettings draft(path, QSettings::IniFormat);
    const bool damaged = application.damaged || IsDamaged(draft);
    const QString copy = damaged ? KeepCopy(application.path, before) : QString();
    application.damaged = false;
    const QByteArray content = ContentWith(draft, application.unwritten, workshop);
    if (content.isEmpty()) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file %1 cannot be written."),
             application.path);
    }
    PutInPlace(application.path, content);
    application.onDisk = nullptr;
    application.unwritten.clear();
    if (!copy.isEmpty()) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file was damaged. What could be read "
                                                "of it was kept; the damaged file "
                                                "is now %1."),
             copy);
    }
}

}  // namespace CorvexMaterial
