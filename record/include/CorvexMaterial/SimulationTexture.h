#pragma once

#include <CorvexMaterial/Attribute.h>
#include <CorvexMaterial/Looks.h>

#include <array>
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

/// What a shape puts on the picture, whose colours come out as they are where these have their
/// factory values.
inline constexpr std::array kTints{Attribute::Color, Attribute::Transparency};

/// Whether such attributes are rendered once into a picture that stands for them in real time.
[[nodiscard]] constexpr bool
WantsSimulation(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return IsPredefined(attributes) || attributes.ColorPattern != 0;
}

}  // namespace CorvexMaterial
