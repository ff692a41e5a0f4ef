#include <CorvexMaterial/WarningCatalogue.h>

#include <CorvexMaterial/EnumEnd.h>
#include <CorvexMaterial/NumberText.h>

namespace CorvexMaterial {

namespace {

constexpr std::array<WarningRow, kWarningCount> kRows{{
    {WarningId::RaytraceTranslucency, "RaytraceTranslucency",
     "Translucency Maps do not apply to images raytraced with POV-Ray. POV-Ray requires that a "
     "texture contain a translucency layer. The PNG and TGA file formats support this "
     "translucency layer."},
    {WarningId::Bumpmapping, "Bumpmapping",
     "Bumpmapping is not supported by your current graphics card.",
     "Bumpmapping is not supported by your current graphics card. If you would like bumpmapping "
     "you can raytrace using POV-Ray. For more information on POV-Ray see the Corvex Help."},
    {WarningId::SpecularEnvironmentMapping, "SpecularEnvironmentMapping",
     "Your current graphics card has limitations that may cause simultaneous Bumpmapping, "
     "Specular Mapping, and/or Environment Mapping to fail."},
    // "attibutes" is how users know these two texts.
    {WarningId::RaytraceSimulation, "RaytraceSimulation",
     "A material has been created that simulates the effect produced by raytracing. Several "
     "Corvex material attibutes will be disabled while this material is active to ensure the "
     "best match with the Raytraced rendering.",
     "A material has been created that simulates the effect produced by raytracing. All "
     "Corvex material attibutes will be disabled while this material is active to ensure the "
     "best match with the Raytraced rendering."},
    {WarningId::MaterialExtended, "MaterialExtended",
     "These material attributes only apply when rendering using raytracing. Options that do not "
     "apply to your selected raytracer will be disabled."},
    {WarningId::MaterialLibrary, "MaterialLibrary",
     "You can create a new material library by typing a new library name and clicking \"Open\"."},
    {WarningId::TextureLibrary, "TextureLibrary",
     "You can create a new texture library by typing a new library name and clicking \"Open\"."},
    {WarningId::MaterialTif, "MaterialTIF",
     "Corvex does not support TIF compression or the TIF alpha channels (translucent layers)."},
    {WarningId::PovRayConfiguration, "POVRayConfiguration",
     "Please ensure that you have POVRay 3.5 or higher installed. Also ensure that the 'Script "
     "I/O Restrictions' on POVRay's 'Options' menu is set to 'No Restrictions'"},
    {WarningId::SimulationTexture, "Simulation Texture",
     "Corvex will now use your raytracer to create a Corvex material that simulates the raytracing "
     "material."},
}};

constexpr bool RowsFollowEnum()
{
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].id != static_cast<WarningId>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowEnum() && EndsAt<WarningId, kWarningCount>(),
              "a warning without a row, or kWarningCount too small");

}  // namespace

const std::array<WarningRow, kWarningCount>& WarningRows()
{
    return kRows;
}

const WarningRow& RowOf(WarningId id)
{
    return kRows[static_cast<std::size_t>(id)];
}

bool WarningWanted(const std::optional<std::string>& storedChoice)
{
    return !storedChoice || NumberFromText(*storedChoice) == 1.0;
}

std::string TextOfWarningChoice(bool keepShowing)
{
    return keepShowing ? "1" : "0";
}

}  // namespace CorvexMaterial
