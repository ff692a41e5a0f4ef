#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

#include <stdexcept>

class ThrowsAtStart : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    ThrowsAtStart() { throw std::runtime_error("no licence"); }
    std::string Name() const override { return "Never"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override { return {}; }
    void Generate(const CorvexPlugin::Request&, CorvexPlugin::Texture&) const override {}
};
