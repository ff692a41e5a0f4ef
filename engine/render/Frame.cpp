#include "Frame.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace studio {

Bounds WorldBounds(const FrameItem& item)
{
    Bounds bounds;
    if (item.mesh && !item.mesh->bounds.Empty()) {
        for (const QVector3D& corner : item.mesh->bounds.Corners()) {
            bounds.Include(item.worldFromMesh.map(corner));
        }
    }
    return bounds;
}

Bounds WorldBounds(const std::vector<FrameItem>& items)
{
    Bounds bounds;
    for (const FrameItem& item : items) {
        bounds.Include(WorldBounds(item));
    }
    return bounds;
}

Camera Framed(const Camera& camera, const std::vector<FrameItem>& items)
{
    constexpr float kMargin = 1.12F;
    const Bounds bounds = WorldBounds(items);
    if (bounds.Empty()) {
        return camera;
    }
    Camera framed = camera;
    framed.target = bounds.Centre();
    const QVector3D right = camera.Right();
    const QVector3D up = camera.Up();
    const QVector3D back = camera.Back();
    const float slope = std::tan(qDegreesToRadians(camera.fovDegrees) / 2.0F);
    const float nearer = camera.lens == Lens::Parallel ? 0.0F : 1.0F;
    float distance = 0.0F;
    for (const FrameItem& item : items) {
        if (!item.mesh) {
            continue;
        }
        for (const Vertex& vertex : item.mesh->vertices) {
            const auto& [x, y, z] = vertex.position;
            const QVector3D point = item.worldFromMesh.map(QVector3D(x, y, z)) - framed.target;
            const float aside = std::max(std::abs(QVector3D::dotProduct(point, right)),
                                         std::abs(QVector3D::dotProduct(point, up)));
            distance = std::max(distance, kMargin * aside / slope +
                                              nearer * QVector3D::dotProduct(point, back));
        }
    }
    framed.distance = std::max(distance, 1e-4F);
    return framed;
}

float DistanceBeforeAll(const Frame& frame)
{
    const Camera& camera = frame.camera;
    float distance = camera.distance;
    const Bounds bounds = WorldBounds(frame.items);
    if (camera.lens == Lens::Parallel && !bounds.Empty()) {
        for (const QVector3D& corner : bounds.Corners()) {
            const float before = QVector3D::dotProduct(corner - camera.target, camera.Back());
            distance = std::max(distance, before + camera.distance);
        }
    }
    return distance;
}

}  // namespace studio
