#include "StandIn.h"

#include <CorvexMaterial/Looks.h>

#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr std::int32_t kPolish = 60;
/// Real time tints nothing that is behind: some of the glass must be left to see its colour.
constexpr float kClearest = 65.0F;

CorvexDB::udtMaterial StandInFor(const PredefinedLook& look)
{
    CorvexDB::udtMaterial material;
    material.Color = ColourOfHex(look.colour);
    material.Specular = kPolish;
    material.Transparency = static_cast<std::int32_t>(std::lround(kClearest * look.clearness));
    return material;
}

}  // namespace

CorvexDB::udtMaterial StandInFor(const CorvexDB::udtMaterial& material)
{
    if (const PredefinedLook* look = PredefinedLookOf(material.RayTrace)) {
        return StandInFor(*look);
    }
    CorvexDB::udtMaterial shown = material;
    shown.RayTrace = {};
    if (!IsPredefined(material.RayTrace) &&
        FindColourPattern(material.RayTrace.ColorPattern) != nullptr) {
        shown.Color = ColourOfLight(LightOf(material.Color) * MeanPatternLight(material.RayTrace));
        shown.Textures.primary.clear();
        shown.Textures.overlay.clear();
    }
    return shown;
}

}  // namespace CorvexMaterial
