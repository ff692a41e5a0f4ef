#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

/// Cloth of two threads in the classic weaves.
class ClothPlugin : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    std::string Name() const override { return "Woven Cloth"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override;
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override;
};
