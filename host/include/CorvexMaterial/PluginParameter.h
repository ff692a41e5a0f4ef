#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace CorvexDB {

/// Which editor a parameter gets. Any other value gets a caption only.
enum class ParameterKind : std::int32_t {
    List = 1,
    Tick = 2,
    Slider = 3,
    Number = 4,
    Shape = 5,        ///< Box, Cylinder, Sphere
    SimpleShape = 6,  ///< Box, Cylinder
    PackedColour = 7,
};

struct PluginParameter {
    std::string name;
    ParameterKind kind = ParameterKind::Slider;
    float minimum = 0.0F;
    float maximum = 0.0F;
    std::int32_t decimals = 0;  ///< of a number box
    std::vector<std::string> choices;
    float boxDefault = 0.0F;  ///< what an emptied number box falls back to
    float defaultValue = 0.0F;
    std::int32_t reserved = 0;
    float step = 0.0F;  ///< slider large change (0 = automatic), number box increment
};

}  // namespace CorvexDB
