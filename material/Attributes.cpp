#include "material/Attributes.h"

#include "raytrace/RaytraceCatalogue.h"

namespace CorvexMaterial {

namespace {

using enum Attribute;
using enum AttributeKind;

// Two keys are misspelled; stores in use hold them so.
constexpr std::array<AttributeRow, kAttributeCount> kRows{{
    {PreviewPrimitive, "MaterialPreviewPrimitive", "MaterialUserPreviewPrimitive", WholeNumber,
     "2"},
    {Color, "MaterialColor", "MaterialUserColor", PackedColour, "16777215"},
    {Emissive, "MaterialEmissive", "MaterialUserEmissive", WholeNumber, "20"},
    {Specular, "MaterialSpecular", "MaterialUserSpecular", WholeNumber, "0"},
    {Transparency, "MaterialTransparency", "MaterialUserTransparency", WholeNumber, "0"},
    {Ambient, "MaterialAmbient", "MaterialUserAmbient", WholeNumber, "60"},
    {WrapOrientationU, "MaterialWrapOrientationU", "MaterialUserWrapOrientationU", Flag, "False"},
    {WrapOrientationV, "MaterialWrapOrientationV", "MaterialUserWrapOrientationV", Flag, "False"},
    {DoubleSided, "MaterialDoubleSided", "MaterialUserDoubleSided", Flag, "False"},
    {AlphaTest, "MaterialAlphaTest", "MaterialUserAlphaTest", ListPosition, "0", 8},
    {AlphaTestReference, "MaterialAlphaTestReference", "MaterialUserAlphaTestReference",
     WholeNumber, "0"},
    {WrapType, "MaterialWrapType", "MaterialUserWrapType", ListPosition, "0", 3},
    {OverlayTranslucency, "TextureOverlayTranslucency", "TextureOverlayTranslucency", WholeNumber,
     "50"},
    {FlatWrapType, "MaterialTextureFlatWrapType", "MaterialUserTextureFlatWrapType", ListPosition,
     "0", 3},
    {OriginU, "MaterialWrapOriginU", "MaterialUserWrapOriginU", Single, "0"},
    {OriginV, "MaterialWrapOriginV", "MaterialUserWrapOriginV", Single, "0"},
    {ScaleU, "MaterialWrapScaleU", "MaterialUserWrapScaleU", Single, "1"},
    {ScaleV, "MaterialWrapScaleV", "MaterialUserWrapScaleV", Single, "1"},
    {TilesPerUnit, "MaterialWrapTilesPerUnit", "MaterialUserWrapTilesPerUnit", Single, "1"},
    {Texture, "MaterialTexture", "MaterialUserTexture", Text, ""},
    {TextureAlphaChannelUse, "MaterialTextureAlphaChannelUse", "MaterialUserTextureAlphaChannelUse",
     ListPosition, "0", 5},
    {AlphaIsTransparent, "MaterialAlphaIsTransparent", "MaterialUserAlphaIsTransparent", Flag,
     "False"},
    {TextureAlpha, "MaterialTextureAlpha", "MaterialUserTextureAlpha", Text, ""},
    {TextureOverlay, "MaterialTextureOverlay", "MaterialUserTextureOverlay", Text, ""},
    {TextureBumpmap, "MaterialTextureBumpmap", "MaterialUserTextureBumpmap", Text, ""},
    {TextureSpecularMap, "MaterialTextureSpecularMap", "MaterialUserTextureSpecularMap", Text, ""},
    {TextureEnvironmentMap, "MaterialTextureEnvironmentMap", "MaterialUserTextureEnvironmentMap",
     Text, ""},
    {RayTraceBrilliance, "MaterialRayTraceBrilliance", "MaterialUserRayTraceBrilliance", Single,
     "5"},
    {RayTraceReflection, "MaterialRayTraceReflection", "MaterialUserRayTraceReflection", Single,
     "0"},
    {RayTraceNormalPattern, "MaterialRayTraceNormalPattern", "MaterialUserRayTraceNormalPattern",
     ListPosition, "0", 15},
    {RayTraceNormalSize, "MaterialRayTraceNormalSize", "MaterialUserRayTraceNormalSize", Single,
     "5"},
    {RayTraceNormalScale, "MaterialRayTraceNormalScale", "MaterialUserRayTraceNormalScale", Single,
     "5"},
    {RayTraceIridescenceFactor, "MaterialRayTraceIridescenceFactor",
     "MaterialUserRayTraceIridescenceFactor", Single, "0"},
    {RayTraceIridescenceThickness, "MaterialRayTraceIridescenceThickness",
     "MaterialUserRayTraceIridescenceThickness", Single, "5"},
    {RayTraceIridescenceTurbulence, "MaterialRayTraceIridescenceTurbulence",
     "MaterialUserRayTraceIridescenceTurbulence", Single, "5"},
    {RayTraceRoughness, "MaterialRayTraceRoughness", "MaterialUserRayTraceRoughness", Single, "5"},
    {RayTraceMetallic, "MaterialRayTraceMetallic", "MaterialUserRayTraceMetallic", Flag, "False"},
    {RaytracePredefinedType, "MaterialRaytracePredefinedType", "MaterialUserRaytracePredefinedType",
     ListPosition, "0", 5},
    {RaytracePredefinedMaterial, "MaterialRaytracePredefinedMaterial",
     "MaterialUserRaytracePredefinedMaterial", ListPosition, "0", kLongestPredefinedList},
    {RaytraceColorPattern0Red, "MaterialRaytraceColorPattern0Red",
     "MaterialUserRaytraceColorPattern0Red", Single, "1"},
    {RaytraceColorPattern0Green, "MaterialRaytraceColorPattern0Green",
     "MaterialUserRaytraceColorPattern0Green", Single, "1"},
    {RaytraceColorPattern0Blue, "MaterialRaytraceColorPattern0Blue",
     "MaterialUserRaytraceColorPattern0Blue", Single, "1"},
    {RaytraceColorPattern1Red, "MaterialRaytraceColorPattern1Red",
     "MaterialUserRaytraceColorPattern1Red", Single, "1"},
    {RaytraceColorPattern1Green, "MaterialRaytraceColorPattern1Green",
     "MaterialUserRaytraceColorPattern1Green", Single, "1"},
    {RaytraceColorPattern1Blue, "MaterialRaytraceColorPattern1Blue",
     "MaterialUserRaytraceColorPattern1Blue", Single, "1"},
    {RaytraceColorPattern2Red, "MaterialRaytraceColorPattern2Red",
     "MaterialUserRaytraceColorPattern2Red", Single, "1"},
    {RaytraceColorPattern2Green, "MaterialRaytraceColorPattern2Green",
     "MaterialUserRaytraceColorPattern2Green", Single, "1"},
    {RaytraceColorPattern2Blue, "MaterialRaytraceColorPattern2Blue",
     "MaterialUserRaytraceColorPattern2Blue", Single, "1"},
    {RaytraceColorPattern3Red, "MaterialRaytraceColorPattern3Red",
     "MaterialUserRaytraceColorPattern3Red", Single, "1"},
    {RaytraceColorPattern3Green, "MaterialRaytraceColorPattern3Green",
     "MaterialUserRaytraceColorPattern3Green", Single, "1"},
    {RaytraceColorPattern3Blue, "MaterialRaytraceColorPattern3Blue",
     "MaterialUserRaytraceColorPattern3Blue", Single, "1"},
    {RaytraceColorPatternFrequency, "MaterialRaytraceColorPatternFrequencey",
     "MaterialUserRaytraceColorPatternFrequencey", Single, "0"},
    {RaytraceColorPatternTurbulence, "MaterialRaytraceColorPatternTurbulence",
     "MaterialUserRaytraceColorPatternTurbulence", Single, "0"},
    {RaytraceNormalFrequency, "MaterialRaytraceNormalFreqency",
     "MaterialUserRaytraceNormalFreqency", Single, "0"},
    {RaytraceNormalTurbulence, "MaterialRaytraceNormalTurbulence",
     "MaterialUserRaytraceNormalTurbulence", Single, "0"},
    {TextureLibrary, "TextureLibrary", "", Text, "Gems.cvt"},
    {MaterialLibrary, "MaterialLibrary", "", Text, "Gems.cvm"},
    {ApplyRelative, "MaterialApplyRelative", "MaterialUserApplyRelative", ListPosition, "0", 3},
    {RayTraceType, "MaterialRayTraceType", "MaterialUserRayTraceType", ListPosition, "0", 2},
    {RaytraceColorPattern, "MaterialRaytraceColorPattern", "MaterialUserRaytraceColorPattern",
     ListPosition, "0", 24},
    {Plugin, "MaterialPlugin", "MaterialPlugin", Text, ""},
    {PluginParameters, "MaterialPluginParameter", "MaterialPluginParameter", Group, ""},
    {CustomFields, "", "MaterialCustomFieldValue", Group, ""},
}};

constexpr bool RowsFollowEnum()
{
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].attribute != static_cast<Attribute>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowEnum());

constexpr bool OnlyListsHaveASize()
{
    for (const AttributeRow& row : kRows) {
        if ((row.kind == AttributeKind::ListPosition) != (row.listSize > 0)) {
            return false;
        }
    }
    return true;
}
static_assert(OnlyListsHaveASize());

}  // namespace

const std::array<AttributeRow, kAttributeCount>& AttributeRows()
{
    return kRows;
}

const AttributeRow& RowOf(Attribute attribute)
{
    return kRows[static_cast<std::size_t>(attribute)];
}

std::string_view FactoryText(Attribute attribute)
{
    return RowOf(attribute).factoryText;
}

}  // namespace CorvexMaterial
