#pragma once

#include <CorvexMaterial/SettingsStore.h>

#include <QSettings>
#include <QString>

#include <map>
#include <memory>

namespace CorvexMaterial {

/// One INI file per application name, a section per group. The disk is touched by Flush only, and
/// there the file is replaced as a whole, merged with what other processes wrote meanwhile.
///
/// A damaged file yields what can be read. The first Flush keeps a copy of it beside it before it
/// replaces it, and reports that copy. Writes that could not be put on disk stay readable and are
/// tried again by the next Flush.
class QtSettingsStore final : public SettingsStore {
public:
    explicit QtSettingsStore(const QString& folder);
    /// Puts what was not flushed on disk; a failure here reaches nobody.
    ~QtSettingsStore() override;
    QtSettingsStore(const QtSettingsStore&) = delete;
    QtSettingsStore& operator=(const QtSettingsStore&) = delete;

    /// Where the user's settings files live.
    [[nodiscard]] static QString UserFolder();

    std::optional<std::string> Read(const SettingAddress& address) override;
    void Write(const SettingAddress& address, const std::string& value) override;
    void Flush(const std::string& application) override;

private:
    struct Application {
        QString path;
        std::unique_ptr<QSettings> onDisk;  ///< null while the file is not read or not readable
        /// Only the object that parsed a file knows: the result of parsing is shared.
        bool damaged = false;
        std::map<QString, QString> unwritten;
    };

    Application& Opened(const std::string& application);
    static void PutOnDisk(Application& application);

    QString m_folder;
    std::map<std::string, Application> m_applications;
};

}  // namespace CorvexMaterial
