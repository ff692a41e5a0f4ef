#include "raytrace/RendererOptions.h"

#include <array>
#include <cstddef>

namespace CorvexMaterial {

namespace {

struct OptionRow {
    RaytraceOption option;
    bool povRay;
    bool renderMan;
};

constexpr std::array<OptionRow, 8> kOptions{{
    {RaytraceOption::Brilliance, true, false},     // no shader has an exponent for its diffuse part
    {RaytraceOption::Reflection, true, true},      // Kr of shinymetal, else more Ks and less body
    {RaytraceOption::Roughness, true, true},       // roughness of plastic and the metals
    {RaytraceOption::Metallic, true, true},        // specularcolor, or metal
    {RaytraceOption::Iridescence, true, false},    // needs a shader of one's own
    {RaytraceOption::ColorPattern, true, false},   // paintedplastic takes images only
    {RaytraceOption::NormalPattern, true, false},  // there is no displacement shader to rely on
    {RaytraceOption::PredefinedMaterial, true, false},  // stock textures of POV-Ray
}};

constexpr bool OptionsFollowEnum()
{
    for (std::size_t i = 0; i < kOptions.size(); ++i) {
        if (kOptions[i].option != static_cast<RaytraceOption>(i)) {
            return false;
        }
    }
    return kOptions.size() == static_cast<std::size_t>(RaytraceOption::PredefinedMaterial) + 1;
}
static_assert(OptionsFollowEnum());

}  // namespace

bool Honours(CorvexDB::Raytracer raytracer, RaytraceOption option)
{
    const OptionRow& row = kOptions[static_cast<std::size_t>(option)];
    return raytracer == CorvexDB::Raytracer::RenderMan ? row.renderMan : row.povRay;
}

}  // namespace CorvexMaterial
