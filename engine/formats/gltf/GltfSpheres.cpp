#include "GltfSpheres.h"

#include "ParametricMesh.h"

#include <cmath>
#include <numbers>

namespace studio {
namespace {

std::shared_ptr<const Mesh> CoarseSphere()
{
    constexpr Grid kCoarse{24, 12};
    const Surface sphere = [](float u, float v) {
        const float longitude = 2.0F * std::numbers::pi_v<float> * u;
        const float latitude = std::numbers::pi_v<float> * (v - 0.5F);
        return QVector3D(std::cos(latitude) * std::sin(longitude), std::sin(latitude),
                         std::cos(latitude) * std::cos(longitude));
    };
    return ParametricMesh(sphere, kCoarse);
}

}  // namespace

ImportedModel SpheresWearing(std::span<const NamedMaterial> materials)
{
    constexpr float kDistance = 2.5F;
    const auto sphere = CoarseSphere();
    const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(materials.size())));
    ImportedModel scene;
    scene.materials.assign(materials.begin(), materials.end());
    for (std::size_t index = 0; index < materials.size(); ++index) {
        QMatrix4x4 place;
        place.translate(kDistance * static_cast<float>(index % columns),
                        -kDistance * static_cast<float>(index / columns));
        scene.meshes.push_back({sphere, index, true});
        scene.shapes.push_back({materials[index].name, index, place});
    }
    return scene;
}

}  // namespace studio
