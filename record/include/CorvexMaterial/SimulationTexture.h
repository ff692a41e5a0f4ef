#pragma once

#include <CorvexMaterial/Looks.h>

#include <string_view>

namespace CorvexMaterial {

/// Whether a picture was made to stand for raytrace attributes. It tells by the file's name, which
/// is all that a material keeps of it: a host that moves such a file lets its name begin and end as
/// it does.
[[nodiscard]] constexpr bool IsSimulationTexture(std::string_view path)
{
    constexpr std::string_view kStart = "~CVX";
    constexpr std::string_view kEnd = ".jpg";
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    return name.size() >= kEnd.size() && name.substr(0, kStart.size()) == kStart &&
           name.substr(name.size() - kEnd.size()) == kEnd;
}

/// Whether such attributes are rendered once into a picture that stands for them in real time.
[[nodiscard]] constexpr bool
WantsSimulation(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return IsPredefined(attributes) || attributes.ColorPattern != 0;
}

}  // namespace CorvexMaterial
