#include "RaytraceOptions.h"

#include <CorvexMaterial/EnumEnd.h>
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/SimulationTexture.h>

#include <array>

namespace CorvexMaterial {

namespace {

using Attributes = CorvexDB::cdtRayTraceMaterialAttributes;

/// Differs from a new material's.
template <auto Member>
bool Changed(const ShownMaterial& shown)
{
    const Attributes& attributes = shown.material.RayTrace;
    return !IsPredefined(attributes) && attributes.*Member != Attributes().*Member;
}

template <auto File, std::int32_t AlphaChannelUse>
bool HasMap(const ShownMaterial& shown)
{
    const CorvexDB::udtMaterial& material = shown.material;
    return !IsPredefined(material.RayTrace) &&
           (!(material.Textures.*File).empty() ||
            (shown.primaryHasAlpha && material.TextureAlphaChannelUse == AlphaChannelUse));
}

constexpr auto kHasBumpMap = HasMap<&CorvexDB::TextureFiles::bump, 2>;

/// A picture that stands for the attributes can be shown.
bool IsSimulated(const ShownMaterial& shown)
{
    return IsSimulationTexture(shown.material.Textures.primary);
}

constexpr std::array kRows{
    OptionRow{RaytraceOption::Brilliance, "brilliance", Changed<&Attributes::Brilliance>},
    OptionRow{RaytraceOption::Reflection, "reflection", Changed<&Attributes::Reflection>},
    OptionRow{RaytraceOption::Roughness, "roughness", Changed<&Attributes::Roughness>},
    OptionRow{RaytraceOption::Metallic, "metallic surfaces", Changed<&Attributes::Metallic>},
    OptionRow{RaytraceOption::Iridescence, "iridescence", Changed<&Attributes::IridescenceFactor>},
    OptionRow{RaytraceOption::ColorPattern, "color patterns",
              [](const ShownMaterial& shown) {
                  return Changed<&Attributes::ColorPattern>(shown) && !IsSimulated(shown);
              }},
    OptionRow{RaytraceOption::NormalPattern, "normal patterns",
              Changed<&Attributes::NormalPattern>},
    OptionRow{RaytraceOption::PredefinedMaterial, "predefined materials",
              [](const ShownMaterial& shown) {
                  return IsPredefined(shown.material.RayTrace) && !IsSimulated(shown);
              }},
    OptionRow{RaytraceOption::AlphaMap, "alpha maps", HasMap<&CorvexDB::TextureFiles::alpha, 0>},
    OptionRow{RaytraceOption::BumpMap, "bump maps", kHasBumpMap},
    OptionRow{RaytraceOption::PatternedBump, "bump maps under a normal pattern",
              [](const ShownMaterial& shown) {
                  return kHasBumpMap(shown) && Changed<&Attributes::NormalPattern>(shown);
              }},
    OptionRow{RaytraceOption::SpecularMap, "specular maps",
              HasMap<&CorvexDB::TextureFiles::specular, 3>},
    OptionRow{RaytraceOption::OtherEnvironment, "environment maps but the first",
              [](const ShownMaterial& shown) {
                  const std::string own = EnvironmentOf(shown.material);
                  return !own.empty() && own != shown.environment;
              }},
    OptionRow{RaytraceOption::EnvironmentOnImage, "textures and environment maps at once",
              [](const ShownMaterial& shown) {
                  const CorvexDB::TextureFiles& files = shown.material.Textures;
                  return !EnvironmentOf(shown.material).empty() &&
                         !(files.primary.empty() && files.overlay.empty());
              }},
};

constexpr bool RowsFollowEnum()
{
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].option != static_cast<RaytraceOption>(i)) {
            return false;
        }
    }
    return EndsAt<RaytraceOption, kRows.size()>();
}
static_assert(RowsFollowEnum());

}  // namespace

std::span<const OptionRow> OptionRows()
{
    return kRows;
}

std::string EnvironmentOf(const CorvexDB::udtMaterial& material)
{
    return PredefinedLookOf(material.RayTrace) != nullptr ? std::string()
                                                          : material.Textures.environment;
}

}  // namespace CorvexMaterial
