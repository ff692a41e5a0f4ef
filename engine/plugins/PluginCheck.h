#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QString>

namespace studio {

/// Why a plug-in of this name and these parameters cannot be used; empty when it can.
[[nodiscard]] QString PluginFault(const std::string& name,
                                  const std::vector<CorvexPlugin::Parameter>& parameters);

/// A value that the plug-in can rely on: inside the parameter's range, whole where only whole ones
/// make sense. What is no number becomes the default.
[[nodiscard]] float FittedValue(const CorvexPlugin::Parameter& parameter, float value);

}  // namespace studio
