#include "Picking.h"

#include <CorvexMaterial/Vector.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace studio {

namespace {

// Neighbouring triangles share their edges' numbers exactly; in double precision no ray slips
// between them.
using Vector = CorvexMaterial::Vector3<double>;

Vector From(const QVector3D& vector)
{
    return {static_cast<double>(vector.x()), static_cast<double>(vector.y()),
            static_cast<double>(vector.z())};
}

Vector PositionAt(const Mesh& mesh, std::uint32_t index)
{
    const auto& position = mesh.vertices[index].position;
    return {static_cast<double>(position[0]), static_cast<double>(position[1]),
            static_cast<double>(position[2])};
}

// In mesh coordinates. The direction keeps the length that the transform gives it, so that
// distances along the ray are those of the world.
struct MeshRay {
    Vector origin;
    Vector direction;
    double begin = 0.0;
};

bool MeetsBox(const MeshRay& ray, const Bounds& bounds)
{
    double enter = ray.begin;
    double leave = std::numeric_limits<double>::infinity();
    const Vector low = From(bounds.minimum) - ray.origin;
    const Vector high = From(bounds.maximum) - ray.origin;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        if (ray.direction[axis] == 0.0) {
            if (low[axis] > 0.0 || high[axis] < 0.0) {
                return false;
            }
            continue;
        }
        const auto [near, far] =
            std::minmax({low[axis] / ray.direction[axis], high[axis] / ray.direction[axis]});
        enter = std::max(enter, near);
        leave = std::min(leave, far);
    }
    return enter <= leave;
}

enum class Faces { Front, Both };

struct Triangle {
    Vector corner;
    Vector first;
    Vector second;
};

// Möller and Trumbore: the determinant is positive where the ray meets the counter-clockwise side.
std::optional<double> Hit(const MeshRay& ray, const Triangle& triangle, Faces faces)
{
    const Vector across = Cross(ray.direction, triangle.second);
    const double determinant = Dot(triangle.first, across);
    if (determinant == 0.0 || (faces == Faces::Front && determinant < 0.0)) {
        return std::nullopt;
    }
    const Vector toOrigin = ray.origin - triangle.corner;
    const double u = Dot(toOrigin, across) / determinant;
    const Vector turned = Cross(toOrigin, triangle.first);
    const double v = Dot(ray.direction, turned) / determinant;
    const double distance = Dot(triangle.second, turned) / determinant;
    const bool inside = u >= 0.0 && v >= 0.0 && u + v <= 1.0 && distance >= ray.begin;
    return inside ? std::optional(distance) : std::nullopt;
}

}  // namespace

std::optional<double> HitDistance(const Ray& worldRay, const StudioShape& shape)
{
    const auto& mesh = shape.SharedMesh();
    bool invertible = false;
    const QMatrix4x4 meshFromWorld = shape.WorldFromMesh().inverted(&invertible);
    if (mesh == nullptr || !invertible) {
        return std::nullopt;
    }
    const MeshRay ray{From(meshFromWorld.map(worldRay.origin)),
                      From(meshFromWorld.mapVector(worldRay.direction)), worldRay.begin};
    if (!MeetsBox(ray, mesh->bounds)) {
        return std::nullopt;
    }
    // In mesh coordinates a mirrored shape has its fronts outside like any other.
    const Faces faces = shape.Material().DoubleSided ? Faces::Both : Faces::Front;
    std::optional<double> nearest;
    for (std::size_t corner = 0; corner + 2 < mesh->indices.size(); corner += 3) {
        const Vector origin = PositionAt(*mesh, mesh->indices[corner]);
        const Triangle triangle{origin, PositionAt(*mesh, mesh->indices[corner + 1]) - origin,
                                PositionAt(*mesh, mesh->indices[corner + 2]) - origin};
        const auto distance = Hit(ray, triangle, faces);
        if (distance && (!nearest || *distance < *nearest)) {
            nearest = distance;
        }
    }
    return nearest;
}

std::optional<PickHit> PickNearest(const Ray& worldRay,
                                   const std::vector<std::shared_ptr<StudioShape>>& shapes,
                                   PickAmong among)
{
    std::optional<PickHit> nearest;
    for (const auto& shape : shapes) {
        const bool counts = among == PickAmong::Seen ? !shape->Flags().hidden : shape->IsPickable();
        const auto distance = counts ? HitDistance(worldRay, *shape) : std::nullopt;
        if (distance && (!nearest || *distance < nearest->distance)) {
            nearest = PickHit{shape, *distance};
        }
    }
    return nearest;
}

}  // namespace studio
