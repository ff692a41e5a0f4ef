#pragma once

#include "SurfaceMesh.h"

#include <cstdint>
#include <vector>

namespace media {

/// A point of the outline that is turned around the y axis.
struct ProfilePoint {
    double radius = 0.0;
    double height = 0.0;
    double normalOut = 0.0;  ///< the outward normal, away from the axis and upward
    double normalUp = 0.0;
};

using Profile = std::vector<ProfilePoint>;  ///< from the bottom to the top

/// Adds the surface that the profile makes when it is turned around. u runs once around from the
/// back (-z), to the right as seen from outside; v runs from 0 to 1 along the profile's length.
void AddLathed(SurfaceMesh& mesh, const Profile& profile, std::uint32_t around);

/// Adds a disc, its picture upright when the shape is tipped towards the viewer.
void AddCap(SurfaceMesh& mesh, const ProfilePoint& rim, std::uint32_t around);

}  // namespace media
