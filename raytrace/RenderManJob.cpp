#include "raytrace/RenderManJob.h"

namespace CorvexMaterial {

CorvexDB::CommandLine RenderManCommandLine(const RenderManSettings& settings)
{
    const std::string width = std::to_string(settings.width);
    const std::string height = std::to_string(settings.height);
    return {settings.renderer + " -res " + width + " " + height + " " + settings.sceneFile,
            settings.renderer,
            {"-res", width, height, settings.sceneFile},
            {}};
}

}  // namespace CorvexMaterial
