#pragma once

#include "PluginTexture.h"
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/MaterialPlugin.h>
#include <CorvexMaterial/Status.h>

#include <QString>

#include <mutex>

namespace studio {

/// A plug-in that passed the checks, behind a wall: what its code throws or returns wrongly becomes
/// an Error that names its file. Any thread may use it.
class CheckedPlugin : public CorvexDB::Plugin {
public:
    /// Asks for name and parameters, once. The code outlives this object. Errors: InvalidArgument
    /// for a description that cannot be used, Failed for an exception.
    CheckedPlugin(const CorvexPlugin::MaterialPlugin& code, QString file);

    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] const QString& File() const { return m_file; }
    /// Costs the plug-in nothing: the answer was kept.
    std::vector<CorvexDB::PluginParameter> GetParameters() override { return m_table; }
    /// One usable value per parameter, whatever is given.
    [[nodiscard]] std::vector<float> Fitted(const std::vector<float>& values) const;

    /// Draws a square texture of fitted values; without a key. A cancelled drawing gives an empty
    /// one. Calls from several threads wait for each other. Errors: Failed.
    [[nodiscard]] PluginTexture Draw(const std::vector<float>& fitted, int size,
                                     const std::function<bool()>& isCancelled) const;

private:
    [[nodiscard]] CorvexMaterial::Error Failure(const QString& reason) const;
    [[nodiscard]] CorvexPlugin::Texture Generate(const CorvexPlugin::Request& request) const;

    const CorvexPlugin::MaterialPlugin& m_code;
    QString m_file;
    std::string m_name;
    std::vector<CorvexPlugin::Parameter> m_parameters;
    std::vector<CorvexDB::PluginParameter> m_table;
    mutable std::mutex m_drawing;
};

}  // namespace studio
