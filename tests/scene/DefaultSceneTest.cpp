#include "DefaultScene.h"

namespace {

QVector3D At(const std::array<float, 3>& values)
{
    return {values[0], values[1], values[2]};
}

TEST(DefaultScene, SurfacesAreSmoothAndFaceOutward)
{
    for (const auto& shape : studio::DefaultShapes()) {
        const studio::Mesh& mesh = *shape->SharedMesh();
        for (const studio::Vertex& vertex : mesh.vertices) {
            ASSERT_NEAR(At(vertex.normal).length(), 1.0F, 1e-3F) << shape->Name();
        }
        float volume = 0.0F;
        for (std::size_t corner = 0; corner < mesh.indices.size(); corner += 3) {
            const studio::Vertex& first = mesh.vertices[mesh.indices[corner]];
            const QVector3D a = At(first.position);
            const QVector3D b = At(mesh.vertices[mesh.indices[corner + 1]].position);
            const QVector3D c = At(mesh.vertices[mesh.indices[corner + 2]].position);
            const QVector3D across = QVector3D::crossProduct(b - a, c - a);
            volume += QVector3D::dotProduct(a, across) / 6.0F;
            if (across.length() > 1e-5F) {
                ASSERT_GT(QVector3D::dotProduct(across.normalized(), At(first.normal)), 0.5F)
                    << shape->Name() << " triangle " << corner / 3;
            }
        }
        // Closed and turned outward, or the sum would be zero or negative.
        EXPECT_GT(volume, 0.05F) << shape->Name();
    }
}

TEST(DefaultScene, CameraSeesEveryShapeWhole)
{
    const QSizeF picture(1280, 800);
    const studio::Camera camera = studio::DefaultCamera();
    const QMatrix4x4 clipFromWorld = camera.Projection(picture, {0.1F, 100.0F}) * camera.View();
    for (const auto& shape : studio::DefaultShapes()) {
        const QMatrix4x4 worldFromMesh = shape->WorldFromMesh();
        for (const studio::Vertex& vertex : shape->SharedMesh()->vertices) {
            const QVector3D seen = clipFromWorld.map(worldFromMesh.map(At(vertex.position)));
            ASSERT_LT(std::abs(seen.x()), 0.98F) << shape->Name();
            ASSERT_LT(std::abs(seen.y()), 0.98F) << shape->Name();
        }
    }
}

}  // namespace
