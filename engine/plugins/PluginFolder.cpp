#include "PluginFolder.h"

#include "CheckedPlugin.h"
#include "RegularFile.h"
#include "Tr.h"
#include <CorvexMaterial/ErrorReport.h>
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QStandardPaths>

#include <algorithm>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

constexpr qint64 kLongStartMs = 500;

[[noreturn]] void Refuse(const QString& file, const QString& reason)
{
    throw Error(
        Status::FileFailed,
        Tr("The file “%1” is no plug-in for this program: %2.").arg(file, reason).toStdString());
}

// The loader would open whatever has this name.
void CheckFile(const QString& path, const QString& file)
{
    constexpr std::int64_t kMostPluginBytes = std::int64_t{256} << 20;
    const CorvexMaterial::RegularFile opened(path.toStdString(), kMostPluginBytes);
    if (!opened.Obstacle().empty()) {
        Refuse(file, QString::fromStdString(opened.Obstacle()));
    }
}

// Reads what the library says about itself, before any of its code runs.
void CheckIdentity(const QPluginLoader& loader, const QString& file)
{
    const QString own = QStringLiteral(CorvexMaterialPlugin_iid);
    const QString stem = own.left(own.lastIndexOf(QLatin1Char('/')) + 1);
    const QString found = loader.metaData().value(QStringLiteral("IID")).toString();
    if (found.isEmpty()) {
        Refuse(file, Tr("it does not say what it is"));
    }
    if (found != own && found.startsWith(stem)) {
        Refuse(file, Tr("it was built for version %1 of the plug-in interface, and this is %2")
                         .arg(found.mid(stem.size()), own.mid(stem.size())));
    }
    if (found != own) {
        Refuse(file, Tr("it is one for “%1”").arg(found));
    }
}

const CorvexPlugin::MaterialPlugin& CodeOf(QPluginLoader& loader, const QString& file)
{
    CheckIdentity(loader, file);
    // The library stays loaded when the loader goes.
    QObject* const instance = loader.instance();
    const auto* code = qobject_cast<CorvexPlugin::MaterialPlugin*>(instance);
    if (code == nullptr) {
        Refuse(file, instance == nullptr ? loader.errorString()
                                         : Tr("it lacks the interface that it names"));
    }
    return *code;
}

}  // namespace

QStringList PluginFolder::UsualFolders()
{
    return {QCoreApplication::applicationDirPath() + QStringLiteral("/plugins"),
            QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                QStringLiteral("/plugins")};
}

PluginFolder::PluginFolder(const QStringList& folders)
{
    for (const QString& folder : folders) {
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files, QDir::Name)) {
            if (QLibrary::isLibrary(file.fileName())) {
                Load(file.absoluteFilePath());
            }
        }
    }
}

void PluginFolder::Load(const QString& path)
{
    const QString file = QFileInfo(path).fileName();
    QElapsedTimer clock;
    clock.start();
    try {
        CheckFile(path, file);
        QPluginLoader loader(path);
        Keep(CodeOf(loader, file), file);
    } catch (const Error& error) {
        m_messages.append(QString::fromUtf8(error.what()));
    } catch (...) {
        const auto report = CorvexMaterial::Describe(std::current_exception(), {});
        m_messages.append(Tr("The plug-in “%1” could not be started: %2.")
                              .arg(file, QString::fromStdString(report.description)));
    }
    if (clock.elapsed() > kLongStartMs) {
        m_messages.append(Tr("The plug-in “%1” took %2 seconds to start.")
                              .arg(file)
                              .arg(static_cast<double>(clock.elapsed()) / 1000.0, 0, 'f', 1));
    }
}

void PluginFolder::Add(const CorvexPlugin::MaterialPlugin& code, const QString& file)
{
    try {
        Keep(code, file);
    } catch (const Error& error) {
        m_messages.append(QString::fromUtf8(error.what()));
    }
}

void PluginFolder::Keep(const CorvexPlugin::MaterialPlugin& code, const QString& file)
{
    auto plugin = std::make_shared<CheckedPlugin>(code, file);
    if (const auto other = Find(plugin->Name())) {
        throw Error(Status::InvalidArgument,
                    Tr("The plug-in “%1” is left out: “%2” has the same name, “%3”.")
                        .arg(file, other->File(), QString::fromStdString(plugin->Name()))
                        .toStdString());
    }
    m_records.push_back({plugin, plugin->Name()});
    m_plugins.push_back(std::move(plugin));
}

std::vector<std::string> PluginFolder::Names() const
{
    std::vector<std::string> names;
    for (const auto& plugin : m_plugins) {
        names.push_back(plugin->Name());
    }
    return names;
}

std::shared_ptr<const CheckedPlugin> PluginFolder::Find(const std::string& name) const
{
    const auto found = std::find_if(m_plugins.begin(), m_plugins.end(),
                                    [&](const auto& plugin) { return plugin->Name() == name; });
    return found == m_plugins.end() ? nullptr : *found;
}

}  // namespace studio
