#include "CheckedPlugin.h"
#include "PluginFolder.h"

#include <QColor>
#include <QCoreApplication>

#include <iostream>

// plugin_loads FOLDER: says what the plug-ins of the folder are and what they draw.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const studio::PluginFolder folder(application.arguments().mid(1));
    for (const std::string& name : folder.Names()) {
        const auto plugin = folder.Find(name);
        const auto values = plugin->Fitted({});
        const auto texture = plugin->Draw(values, 64, [] { return false; });
        std::cout << name << ", " << values.size() << " parameters, first pixel "
                  << texture.color.pixelColor(1, 0).name().toStdString() << '\n';
    }
    for (const QString& message : folder.Messages()) {
        std::cerr << message.toStdString() << '\n';
    }
    return folder.Names().empty() ? 1 : 0;
}
