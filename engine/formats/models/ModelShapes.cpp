#include "ModelShapes.h"

namespace studio {

StudioScene::Shapes ShapesOf(const ImportedModel& model)
{
    std::vector<AppliedMaterial> materials;
    materials.reserve(model.materials.size());
    for (const NamedMaterial& named : model.materials) {
        materials.push_back(WholeMaterial(named.material));
        materials.back().identity =
            std::make_shared<SceneMaterial>(SceneMaterial{named.name, {}});
    }
    StudioScene::Shapes shapes;
    shapes.reserve(model.shapes.size());
    for (const ImportedShape& source : model.shapes) {
        const ImportedMesh& mesh = model.meshes[source.mesh];
        AppliedMaterial applied = materials[mesh.material];
        if (!mesh.hasCoordinates) {
            applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
        }
        shapes.push_back(std::make_shared<StudioShape>(source.name, mesh.mesh, std::move(applied)));
        shapes.back()->SetWorldFromMesh(source.worldFromMesh);
    }
    return shapes;
}

}  // namespace studio
