#include "MeshFile.h"

#include "Formats.h"
#include "PlacedMesh.h"

namespace studio {
std::shared_ptr<const Mesh> ReadMeshFile(const std::string& path)
{
    const ImportedModel model = ReadModel(path);
    if (model.shapes.size() == 1) {
        const ImportedShape& shape = model.shapes.front();
        return PlacedMesh(model.meshes[shape.mesh].mesh, shape.worldFromMesh);
    }
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (const ImportedShape& shape : model.shapes) {
        AppendPlaced(*model.meshes[shape.mesh].mesh, shape.worldFromMesh, vertices, indices);
    }
    return MakeMesh(std::move(vertices), std::move(indices));
}

}  // namespace studio
