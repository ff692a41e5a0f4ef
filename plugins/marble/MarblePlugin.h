#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

/// Marble: veins, clouds or broken pieces.
class MarblePlugin : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    std::string Name() const override { return "Marble"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override;
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override;
};
