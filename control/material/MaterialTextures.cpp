#include "ArgumentChecks.h"
#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "MaterialEditor.h"
#include "TexturePage.h"
#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/TextureLayers.h>

// The published properties of the texture layers, their wrap and placement.

namespace CorvexMaterial {

TexturePage& Material::Textures()
{
    return m_editor->Form().Attributes().Channels().Textures();
}

Status Material::GetFile(const char* property, TextureLayer layer, std::string& file)
{
    return m_editor->Guard()(property, [&] { file = Textures().File(layer); });
}

Status Material::PutFile(const char* property, TextureLayer layer, const std::string& file)
{
    return m_editor->Guard()(
        property, [&] { m_editor->ChangeAtOnce([&] { Textures().SetFile(layer, file); }); });
}

Status Material::GetPlacement(const char* property, float CorvexDB::TexturePlacement::*fraction,
                              float& value)
{
    return m_editor->Guard()(property, [&] { value = Textures().Placement().*fraction; });
}

Status Material::PutPlacement(const char* property, float CorvexDB::TexturePlacement::*fraction,
                              float value)
{
    return m_editor->Guard()(property, [&] {
        CheckFinite(value, property);
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.*fraction = value;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status Material::get_TextureFileName(std::string& TextureFileName)
{
    return GetFile("TextureFileName", TextureLayer::Primary, TextureFileName);
}

Status Material::put_TextureFileName(const std::string& TextureFileName)
{
    return PutFile("TextureFileName", TextureLayer::Primary, TextureFileName);
}

Status Material::get_TextureOverlayFileName(std::string& TextureOverlayFileName)
{
    return GetFile("TextureOverlayFileName", TextureLayer::Overlay, TextureOverlayFileName);
}

Status Material::put_TextureOverlayFileName(const std::string& TextureOverlayFileName)
{
    return PutFile("TextureOverlayFileName", TextureLayer::Overlay, TextureOverlayFileName);
}

Status Material::get_TextureBumpmapFileName(std::string& TextureBumpmapFileName)
{
    return GetFile("TextureBumpmapFileName", TextureLayer::Bump, TextureBumpmapFileName);
}

Status Material::put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName)
{
    return PutFile("TextureBumpmapFileName", TextureLayer::Bump, TextureBumpmapFileName);
}

Status Material::get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName)
{
    return GetFile("TextureSpecularMapFileName", TextureLayer::Specular,
                   TextureSpecularMapFileName);
}

Status Material::put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName)
{
    return PutFile("TextureSpecularMapFileName", TextureLayer::Specular,
                   TextureSpecularMapFileName);
}

Status Material::get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName)
{
    return GetFile("TextureEnvironmentMapFileName", TextureLayer::Environment,
                   TextureEnvironmentMapFileName);
}

Status Material::put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName)
{
    return PutFile("TextureEnvironmentMapFileName", TextureLayer::Environment,
                   TextureEnvironmentMapFileName);
}

Status Material::get_TextureAlphaFileName(std::string& TextureAlphaFileName)
{
    return GetFile("TextureAlphaFileName", TextureLayer::Alpha, TextureAlphaFileName);
}

Status Material::put_TextureAlphaFileName(const std::string& TextureAlphaFileName)
{
    return PutFile("TextureAlphaFileName", TextureLayer::Alpha, TextureAlphaFileName);
}

Status Material::get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] { FlatWrapType = Textures().FlatWrap(); });
}

Status Material::put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] {
        m_editor->ChangeAtOnce([&] { Textures().SetFlatWrap(FlatWrapType); });
    });
}

Status Material::get_TextureTilesPerUnit(float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit",
                             [&] { TextureTilesPerUnit = Textures().TilesPerUnit(); });
}

Status Material::put_TextureTilesPerUnit(const float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit", [&] {
        CheckFinite(TextureTilesPerUnit, "TextureTilesPerUnit");
        m_editor->ChangeAtOnce([&] { Textures().SetTilesPerUnit(TextureTilesPerUnit); });
    });
}

Status Material::get_TextureOriginU(float& TextureOriginU)
{
    return GetPlacement("TextureOriginU", &CorvexDB::TexturePlacement::originU, TextureOriginU);
}

Status Material::put_TextureOriginU(const float& TextureOriginU)
{
    return PutPlacement("TextureOriginU", &CorvexDB::TexturePlacement::originU, TextureOriginU);
}

Status Material::get_TextureOriginV(float& TextureOriginV)
{
    return GetPlacement("TextureOriginV", &CorvexDB::TexturePlacement::originV, TextureOriginV);
}

Status Material::put_TextureOriginV(const float& TextureOriginV)
{
    return PutPlacement("TextureOriginV", &CorvexDB::TexturePlacement::originV, TextureOriginV);
}

Status Material::get_TextureScaleU(float& TextureScaleU)
{
    return GetPlacement("TextureScaleU", &CorvexDB::TexturePlacement::scaleU, TextureScaleU);
}

Status Material::put_TextureScaleU(const float& TextureScaleU)
{
    return PutPlacement("TextureScaleU", &CorvexDB::TexturePlacement::scaleU, TextureScaleU);
}

Status Material::get_TextureScaleV(float& TextureScaleV)
{
    return GetPlacement("TextureScaleV", &CorvexDB::TexturePlacement::scaleV, TextureScaleV);
}

Status Material::put_TextureScaleV(const float& TextureScaleV)
{
    return PutPlacement("TextureScaleV", &CorvexDB::TexturePlacement::scaleV, TextureScaleV);
}

Status Material::get_WrapType(CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] { WrapType = Textures().Wrap(); });
}

Status Material::put_WrapType(const CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()(
        "WrapType", [&] { m_editor->ChangeAtOnce([&] { Textures().SetWrap(WrapType); }); });
}

Status Material::get_MaterialWrapOrientationU(float& MaterialWrapOrientationU)
{
    return m_editor->Guard()("MaterialWrapOrientationU",
                             [&] { MaterialWrapOrientationU = Textures().FlipU() ? 1.0F : 0.0F; });
}

Status Material::get_MaterialWrapOrientationV(float& MaterialWrapOrientationV)
{
    return m_editor->Guard()("MaterialWrapOrientationV",
                             [&] { MaterialWrapOrientationV = Textures().FlipV() ? 1.0F : 0.0F; });
}

Status Material::SetTexturesAvoidStateChange(const std::string& stTextureFileName,
                                             const std::string& stTextureAlphaFileName,
                                             const std::string& stTextureOverlayFileName,
                                             const std::string& stTextureBumpMapFileName,
                                             const std::string& stTextureSpecularMapFileName,
                                             const std::string& stTextureEnvironmentMapFileName)
{
    return m_editor->Guard()("SetTexturesAvoidStateChange", [&] {
        const CorvexDB::TextureFiles files{stTextureFileName,
                                           stTextureOverlayFileName,
                                           stTextureAlphaFileName,
                                           stTextureBumpMapFileName,
                                           stTextureSpecularMapFileName,
                                           stTextureEnvironmentMapFileName};
        m_editor->ChangeSilently([&] {
            for (const TextureLayerRow& row : kTextureLayers) {
                Textures().SetFile(row.layer, files.*row.file);
            }
        });
    });
}

Status Material::SetTextureCropping(const float& stTextureOriginU, const float& stTextureOriginV,
                                    const float& stTextureScaleU, const float& stTextureScaleV)
{
    return m_editor->Guard()("SetTextureCropping", [&] {
        CheckFinite(stTextureOriginU, "stTextureOriginU");
        CheckFinite(stTextureOriginV, "stTextureOriginV");
        CheckFinite(stTextureScaleU, "stTextureScaleU");
        CheckFinite(stTextureScaleV, "stTextureScaleV");
        m_editor->ChangeAtOnce([&] {
            Textures().SetPlacement(
                {stTextureOriginU, stTextureOriginV, stTextureScaleU, stTextureScaleV});
        });
    });
}

}  // namespace CorvexMaterial
