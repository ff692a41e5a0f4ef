#include "RaytraceScene.h"

#include "RaytraceOptions.h"
#include "SurfaceImages.h"

namespace studio {

std::string SharedEnvironment(const RaytraceScene& scene)
{
    for (const FrameItem& item : scene.frame.items) {
        if (std::string file = CorvexMaterial::EnvironmentOf(MaterialOf(item)); !file.empty()) {
            return file;
        }
    }
    return {};
}

}  // namespace studio
