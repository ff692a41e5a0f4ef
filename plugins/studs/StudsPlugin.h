#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

/// A metal sheet with studs, placed so that they lie evenly on the chosen shape.
class StudsPlugin : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    std::string Name() const override { return "Studs"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override;
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override;
};
