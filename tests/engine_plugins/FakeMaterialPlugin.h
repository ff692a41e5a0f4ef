#pragma once

#include "Testing.h"
#include <CorvexMaterial/MaterialPlugin.h>

#include <atomic>

/// A plug-in of one slider that draws a plain colour, or whatever a test sets.
class FakeMaterialPlugin : public CorvexPlugin::MaterialPlugin {
public:
    std::string Name() const override { return name(); }
    std::vector<CorvexPlugin::Parameter> Parameters() const override { return parameters(); }
    void Generate(const CorvexPlugin::Request& request,
                  CorvexPlugin::Texture& texture) const override
    {
        ++drawings;
        generate(request, texture);
    }

    static CorvexPlugin::Parameter Level()
    {
        CorvexPlugin::Parameter level;
        level.name = "Level";
        level.maximum = 255.0F;
        level.defaultValue = 7.0F;
        return level;
    }
    static void Plain(const CorvexPlugin::Request& request, CorvexPlugin::Texture& texture)
    {
        const float grey = request.values[0] / 255.0F;
        CorvexPlugin::Fill(request, CorvexPlugin::Relief::Heights, texture, [&](float, float) {
            return CorvexPlugin::Point{{grey, grey, grey}, 1.0F, 0.0F};
        });
    }

    std::function<std::string()> name = [] { return std::string("Fake"); };
    std::function<std::vector<CorvexPlugin::Parameter>()> parameters = [] {
        return std::vector{Level()};
    };
    std::function<void(const CorvexPlugin::Request&, CorvexPlugin::Texture&)> generate = Plain;
    mutable std::atomic<int> drawings = 0;
};
