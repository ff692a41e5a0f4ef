#include "PreviewMeshes.h"

#include "Lathe.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace media {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr std::uint32_t kAround = 72;
constexpr std::uint32_t kArcSteps = 6;

/// A quarter or so of a circle in the profile plane, from one angle to another (0 = outward, 90° =
/// up), as profile points.
void AppendArc(Profile& profile, ProfilePoint centre, double radius, double from, double to)
{
    for (std::uint32_t step = 0; step <= kArcSteps; ++step) {
        const double angle = from + (to - from) * step / kArcSteps;
        profile.push_back({centre.radius + radius * std::cos(angle),
                           centre.height + radius * std::sin(angle), std::cos(angle),
                           std::sin(angle)});
    }
}

/// A face of the rounded cube: `across` and `up` span it, `outward` is its normal.
struct CubeFace {
    Vector across;
    Vector up;
    Vector outward;
};

constexpr double kHalfSide = 0.64;
constexpr double kRounding = 0.045;

SurfacePoint OnCubeFace(const CubeFace& face, double across, double up)
{
    SurfacePoint point;
    double length = 0.0;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double sharp =
            across * face.across[axis] + up * face.up[axis] + kHalfSide * face.outward[axis];
        const double inner = kHalfSide - kRounding;
        point.position[axis] = std::clamp(sharp, -inner, inner);
        point.normal[axis] = sharp - point.position[axis];
        length = std::hypot(length, point.normal[axis]);
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        point.normal[axis] /= length;
        point.position[axis] += kRounding * point.normal[axis];
    }
    point.u = (across / kHalfSide + 1.0) / 2.0;
    point.v = (up / kHalfSide + 1.0) / 2.0;
    return point;
}

/// Close together on the rounded edges, one step over the flat middle.
std::vector<double> CubeGridLines()
{
    std::vector<double> lines;
    for (std::uint32_t step = 0; step <= kArcSteps; ++step) {
        lines.push_back(-kHalfSide + kRounding * step / kArcSteps);
    }
    for (std::uint32_t step = 0; step <= kArcSteps; ++step) {
        lines.push_back(kHalfSide - kRounding + kRounding * step / kArcSteps);
    }
    return lines;
}

}  // namespace

SurfaceMesh Cube()
{
    constexpr std::array kFaces{
        CubeFace{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}},   CubeFace{{0, 0, -1}, {0, 1, 0}, {1, 0, 0}},
        CubeFace{{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}}, CubeFace{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}},
        CubeFace{{1, 0, 0}, {0, 0, -1}, {0, 1, 0}},  CubeFace{{1, 0, 0}, {0, 0, 1}, {0, -1, 0}},
    };
    const std::vector<double> lines = CubeGridLines();
    SurfaceMesh mesh;
    for (const CubeFace& face : kFaces) {
        std::vector<SurfacePoint> grid;
        for (const double up : lines) {
            for (const double across : lines) {
                grid.push_back(OnCubeFace(face, across, up));
            }
        }
        mesh.AddGrid(grid, static_cast<std::uint32_t>(lines.size()));
    }
    return mesh;
}

SurfaceMesh Cylinder()
{
    constexpr double kRadius = 0.7;
    constexpr double kHalfHeight = 0.75;
    constexpr double kRim = 0.04;
    Profile side;
    AppendArc(side, {kRadius - kRim, -kHalfHeight + kRim}, kRim, -kPi / 2, 0.0);
    AppendArc(side, {kRadius - kRim, kHalfHeight - kRim}, kRim, 0.0, kPi / 2);
    SurfaceMesh mesh;
    AddLathed(mesh, side, kAround);
    AddCap(mesh, {kRadius - kRim, -kHalfHeight, 0.0, -1.0}, kAround);
    AddCap(mesh, {kRadius - kRim, kHalfHeight, 0.0, 1.0}, kAround);
    return mesh;
}

SurfaceMesh Sphere()
{
    constexpr std::uint32_t kRings = 36;
    Profile profile;
    for (std::uint32_t ring = 0; ring <= kRings; ++ring) {
        const double angle = kPi * (static_cast<double>(ring) / kRings - 0.5);
        const double radius = ring == 0 || ring == kRings ? 0.0 : std::cos(angle);
        profile.push_back({radius, std::sin(angle), radius, std::sin(angle)});
    }
    SurfaceMesh mesh;
    AddLathed(mesh, profile, kAround);
    return mesh;
}

SurfaceMesh Torus()
{
    constexpr double kRing = 0.68;
    constexpr double kTube = 0.31;
    constexpr std::uint32_t kTubeSteps = 36;
    constexpr double kTilt = 25.0 * kPi / 180.0;
    Profile profile;  // begins and ends at the inside of the ring
    for (std::uint32_t step = 0; step <= kTubeSteps; ++step) {
        const double angle = kPi * (2.0 * step / kTubeSteps - 1.0);
        profile.push_back({kRing + kTube * std::cos(angle), kTube * std::sin(angle),
                           std::cos(angle), std::sin(angle)});
    }
    SurfaceMesh mesh;
    AddLathed(mesh, profile, kAround + kAround / 3);
    for (SurfacePoint& point : mesh.points) {
        point.u *= 2.0;
        for (Vector* vector : {&point.position, &point.normal}) {
            const auto [x, y, z] = *vector;
            *vector = {x, y * std::cos(kTilt) - z * std::sin(kTilt),
                       y * std::sin(kTilt) + z * std::cos(kTilt)};
        }
    }
    return mesh;
}

SurfaceMesh Cone()
{
    constexpr double kRadius = 0.82;
    constexpr double kBase = -0.75;
    constexpr double kTop = 0.95;
    constexpr double kRim = 0.04;
    constexpr std::uint32_t kSlantSteps = 12;
    const double slope = std::atan2(kRadius, kTop - kBase);  // of the side's normal, upward
    const double rimRadius =
        kRadius * (kTop - kBase - kRim) / (kTop - kBase) - kRim / std::cos(slope);
    Profile side;
    AppendArc(side, {rimRadius, kBase + kRim}, kRim, -kPi / 2, slope);
    const ProfilePoint foot = side.back();
    for (std::uint32_t step = 1; step <= kSlantSteps; ++step) {
        const double way = static_cast<double>(step) / kSlantSteps;
        const double radius = step == kSlantSteps ? 0.0 : foot.radius * (1.0 - way);
        side.push_back(
            {radius, foot.height + way * (kTop - foot.height), std::cos(slope), std::sin(slope)});
    }
    SurfaceMesh mesh;
    AddLathed(mesh, side, kAround);
    AddCap(mesh, {rimRadius, kBase, 0.0, -1.0}, kAround);
    return mesh;
}

}  // namespace media
