#include "platform/QtSettingsStore.h"

#include "host/Status.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

namespace CorvexMaterial {

namespace {

[[noreturn]] void Fail(const char* reason, const QString& path)
{
    const QString text = QCoreApplication::translate("SettingsStore", reason);
    throw Error(Status::FileFailed, text.arg(QDir::toNativeSeparators(path)).toStdString());
}

QString KeyOf(const SettingAddress& address)
{
    return QString::fromStdString(address.section) + '/' + QString::fromStdString(address.key);
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
QString KeepCopy(const QString& path)
{
    for (int number = 1; number < 1000; ++number) {
        const QString copy = QStringLiteral("%1.damaged%2").arg(path).arg(number);
        if (QFile::copy(path, copy)) {
            return copy;
        }
        if (!QFile::exists(copy)) {
            break;
        }
    }
    Fail(
        QT_TRANSLATE_NOOP(
            "SettingsStore",
            "The settings file %1 is damaged and no copy of it can be kept; it was left as it is."),
        path);
}

void CheckReplaceable(const QString& path)
{
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
    const QVariant value = application.onDisk->value(key);
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
        opened.onDisk = std::make_unique<QSettings>(opened.path, QSettings::IniFormat);
        opened.damaged = IsDamaged(*opened.onDisk);
    }
    return opened;
}

void QtSettingsStore::PutOnDisk(Application& application)
{
    if (application.unwritten.empty()) {
        return;
    }
    CheckReplaceable(application.path);
    // An own object per try: the status of one keeps its first error for ever.
    QSettings file(application.path, QSettings::IniFormat);
    const bool damaged = application.damaged || IsDamaged(file);
    const QString copy = damaged ? KeepCopy(application.path) : QString();
    application.damaged = false;
    for (const auto& [key, value] : application.unwritten) {
        file.setValue(key, value);
    }
    file.sync();
    application.onDisk = nullptr;
    if (file.status() == QSettings::AccessError) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file %1 cannot be written."),
             application.path);
    }
    application.unwritten.clear();
    if (!copy.isEmpty()) {
        Fail(QT_TRANSLATE_NOOP("SettingsStore", "The settings file was damaged. What could be read "
                                                "of it was kept; the damaged file "
                                                "is now %1."),
             copy);
    }
}

}  // namespace CorvexMaterial
