#pragma once

#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

/// Boards sawn from a log, or the log itself, turned round.
class WoodPlugin : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID CorvexMaterialPlugin_iid)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    std::string Name() const override { return "Wood"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override;
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override;
};
