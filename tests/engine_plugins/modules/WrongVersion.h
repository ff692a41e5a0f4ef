#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

#include <cstdlib>

/// Built for a version that does not exist yet; none of its code may run.
class WrongVersion : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.corvex.MaterialPlugin/999")
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    WrongVersion() { std::abort(); }
    std::string Name() const override { return "From the future"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override { return {}; }
    void Generate(const CorvexPlugin::Request&, CorvexPlugin::Texture&) const override {}
};
