#pragma once

#include "Field.h"
#include "Paint.h"

#include <array>
#include <string_view>

namespace media {

// Latitude-longitude images, up at the top; u = 0.5 is towards +z.
Paint StudioLights(Point p);
Paint OpenSky(Point p);
Paint Sunset(Point p);

struct EnvironmentRow {
    std::string_view name;
    Paint (*paint)(Point);
};

inline constexpr std::array kEnvironments{
    EnvironmentRow{"open-sky", OpenSky},
    EnvironmentRow{"studio-lights", StudioLights},
    EnvironmentRow{"sunset", Sunset},
};

}  // namespace media
