#include <CorvexMaterial/MaterialPlugin.h>

#include <QObject>

#include <stdexcept>

/// Where its version is none of ours, not even its start may run.
class ThrowsAtStart : public QObject, public CorvexPlugin::MaterialPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID MODULE_IID)
    Q_INTERFACES(CorvexPlugin::MaterialPlugin)

public:
    ThrowsAtStart() { throw std::runtime_error("no licence"); }
    std::string Name() const override { return "Never"; }
    std::vector<CorvexPlugin::Parameter> Parameters() const override { return {}; }
    void Generate(const CorvexPlugin::Request&, CorvexPlugin::Texture&) const override {}
};

#include "ThrowsAtStart.moc"
