#pragma once

#include <CorvexMaterial/MaterialRecord.h>

namespace CorvexTest {

/// Differs from the factory material in every field that is kept between runs.
inline CorvexDB::udtMaterial KeptMaterial()
{
    CorvexDB::udtMaterial material;
    material.Color = 0x204060;
    material.Ambient = 11;
    material.Emissive = 12;
    material.Specular = 13;
    material.Transparency = -14;
    material.WrapOrientationU = true;
    material.WrapOrientationV = true;
    material.DoubleSided = true;
    material.AlphaTest = 5;
    material.AlphaTestReference = 99;
    material.Wrap = CorvexDB::WrapType::Flat;
    material.FlatWrap = CorvexDB::FlatWrapType::TileToFit;
    material.TilesPerUnit = 0.25F;
    material.TextureAlphaChannelUse = 4;
    material.AlphaIsTransparent = true;
    material.OverlayTranslucency = 33.0F;
    material.Textures = {
        "/tex/M\u00F6rtel \u77F3.png", "/o.png", "/a.png", "/b \"c\".png", "/s.png", "/e=f;g.png"};
    material.Placement = {1.0F / 3.0F, 0.25F, 0.5F, -0.75F};
    material.TextureRotation = -30.0F;
    material.TextureWidth = 0.5F;
    material.TextureHeight = 0.75F;
    material.Projection = {0.25F, -1.5F, 2.0F, 15.0F, -45.0F, 90.0F};
    material.RayTrace = {.Brilliance = 7.0F,
                         .Reflection = 3.0F,
                         .IridescenceFactor = 1.0F,
                         .IridescenceThickness = 2.0F,
                         .IridescenceTurbulence = 3.0F,
                         .Roughness = 4.0F,
                         .NormalDepth = 6.0F,
                         .NormalScale = 8.0F,
                         .NormalPattern = 2,
                         .Metallic = true,
                         .PredefinedType = 1,
                         .PreDefinedMaterial = 3,
                         .ColorPatternFrequency = 9.0F,
                         .ColorPatternTurbulence = 10.0F,
                         .NormalPatternFrequency = 0.5F,
                         .NormalPatternTurbulence = 5.0F};
    material.RayTrace.ColorPatternColor = {
        {{0.1F, 0.2F, 0.3F}, {0.4F, 0.45F, 0.55F}, {0.6F, 0.65F, 0.35F}, {0.5F, 0.25F, 0.7F}}};
    return material;
}

/// As an older program kept it: what was no attribute then is at rest.
inline CorvexDB::udtMaterial AsKeptBefore(CorvexDB::udtMaterial material)
{
    material.TextureRotation = material.TextureWidth = material.TextureHeight = 0.0F;
    material.Projection = {};
    return material;
}

/// With the fields that no run inherits from the one before.
inline CorvexDB::udtMaterial FullMaterial()
{
    CorvexDB::udtMaterial material = KeptMaterial();
    material.RayTrace.MaterialType = 1;
    material.RayTrace.ColorPattern = 4;
    material.CustomFields = {"one", "", "three \u00E4", "", "", "six"};
    return material;
}

}  // namespace CorvexTest
