#include "Lathe.h"

#include <cmath>
#include <numbers>

namespace media {
namespace {

/// The point at angle 0 is at the back; a growing angle goes left, front, right.
SurfacePoint Turned(const ProfilePoint& point, double angle)
{
    const double x = -std::sin(angle);
    const double z = -std::cos(angle);
    SurfacePoint turned;
    turned.position = {point.radius * x, point.height, point.radius * z};
    turned.normal = {point.normalOut * x, point.normalUp, point.normalOut * z};
    return turned;
}

std::vector<double> LengthsAlong(const Profile& profile)
{
    std::vector<double> lengths{0.0};
    for (std::size_t i = 1; i < profile.size(); ++i) {
        lengths.push_back(lengths.back() + std::hypot(profile[i].radius - profile[i - 1].radius,
                                                      profile[i].height - profile[i - 1].height));
    }
    return lengths;
}

}  // namespace

void AddLathed(SurfaceMesh& mesh, const Profile& profile, std::uint32_t around)
{
    const std::vector<double> lengths = LengthsAlong(profile);
    std::vector<SurfacePoint> grid;
    for (std::size_t row = 0; row < profile.size(); ++row) {
        // On the axis all columns meet in one place; each triangle there has a point of its own,
        // half a column aside, so that picture and shading come together evenly.
        const double shift = profile[row].radius == 0.0 ? 0.5 : 0.0;
        for (std::uint32_t column = 0; column <= around; ++column) {
            const double u = (column + (row == 0 ? shift : -shift)) / around;
            SurfacePoint point = Turned(profile[row], 2.0 * std::numbers::pi * u);
            point.u = u;
            point.v = lengths[row] / lengths.back();
            grid.push_back(point);
        }
    }
    mesh.AddGrid(grid, around + 1);
}

void AddCap(SurfaceMesh& mesh, const ProfilePoint& rim, std::uint32_t around)
{
    std::vector<SurfacePoint> grid;
    const ProfilePoint centre{0.0, rim.height, 0.0, rim.normalUp};
    const bool faceUp = rim.normalUp > 0.0;
    for (const ProfilePoint& ring : {faceUp ? rim : centre, faceUp ? centre : rim}) {
        for (std::uint32_t column = 0; column <= around; ++column) {
            SurfacePoint point = Turned(ring, 2.0 * std::numbers::pi * column / around);
            const double forward = faceUp ? -point.position[2] : point.position[2];
            point.u = (point.position[0] / rim.radius + 1.0) / 2.0;
            point.v = (forward / rim.radius + 1.0) / 2.0;
            grid.push_back(point);
        }
    }
    mesh.AddGrid(grid, around + 1);
}

}  // namespace media
