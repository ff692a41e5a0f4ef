#include "studio/raytrace/writing/RaytraceScene.h"

#include "raytracers/RaytraceOptions.h"
#include "studio/raytrace/writing/SurfaceImages.h"

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
