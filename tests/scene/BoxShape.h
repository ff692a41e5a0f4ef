#pragma once

#include "StudioShape.h"
#include "Testing.h"

/// A cube from -1 to 1 with flat sides, counter-clockwise seen from outside.
inline std::shared_ptr<const studio::Mesh> BoxMesh()
{
    std::vector<studio::Vertex> vertices;
    for (int corner = 0; corner < 8; ++corner) {
        studio::Vertex vertex;
        vertex.position = {(corner & 1) != 0 ? 1.0F : -1.0F, (corner & 2) != 0 ? 1.0F : -1.0F,
                           (corner & 4) != 0 ? 1.0F : -1.0F};
        vertices.push_back(vertex);
    }
    return studio::MakeMesh(std::move(vertices),
                            {0, 2, 3, 0, 3, 1, 4, 5, 7, 4, 7, 6, 0, 4, 6, 0, 6, 2,
                             1, 3, 7, 1, 7, 5, 0, 1, 5, 0, 5, 4, 2, 6, 7, 2, 7, 3});
}

inline std::shared_ptr<studio::StudioShape> BoxShape(const QMatrix4x4& worldFromMesh,
                                                     bool doubleSided = false)
{
    CorvexDB::udtMaterial material;
    material.DoubleSided = doubleSided;
    auto shape =
        std::make_shared<studio::StudioShape>("Box", BoxMesh(), studio::WholeMaterial(material));
    shape->SetWorldFromMesh(worldFromMesh);
    return shape;
}
