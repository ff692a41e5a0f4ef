#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

/// Stripes of two colours: as little as a material plug-in can be.
class StripesPlugin : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    std::string Name() const override { return "Stripes"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override;
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override;
};
