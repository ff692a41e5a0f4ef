#pragma once

#include <CorvexMaterial/CorvexDB.h>

#include <QString>
#include <QStringList>

#include <memory>

namespace CorvexPlugin {
class MaterialPlugin;
}

namespace studio {

class CheckedPlugin;

/// The material plug-ins that were found in some folders. What cannot be used is left out, with a
/// message that names its file.
class PluginFolder : public CorvexDB::PluginTable {
public:
    /// Beside the program, and the user's own.
    [[nodiscard]] static QStringList UsualFolders();

    /// Loads every shared library of the folders, in the order of their names; a folder that is
    /// missing is no fault.
    explicit PluginFolder(const QStringList& folders);

    /// Element 0 is the placeholder for "no plug-in".
    std::vector<CorvexDB::PluginRecord> Records() override { return m_records; }
    /// As the list of plug-ins shows them: name n - 1 belongs to record n.
    [[nodiscard]] std::vector<std::string> Names() const;
    /// Null when there is none of this name.
    [[nodiscard]] std::shared_ptr<const CheckedPlugin> Find(const std::string& name) const;
    /// One sentence per file that was refused or made the program wait.
    [[nodiscard]] const QStringList& Messages() const { return m_messages; }

    /// Takes a plug-in that is not in a library of its own; it outlives this object. A faulty one
    /// is refused like any other.
    void Add(const CorvexPlugin::MaterialPlugin& code, const QString& file);

private:
    void Load(const QString& path);
    void Keep(const CorvexPlugin::MaterialPlugin& code, const QString& file);

    std::vector<CorvexDB::PluginRecord> m_records{CorvexDB::PluginRecord{}};
    std::vector<std::shared_ptr<const CheckedPlugin>> m_plugins;
    QStringList m_messages;
};

}  // namespace studio
