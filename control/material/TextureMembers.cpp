#include "ArgumentChecks.h"
#include "AttributePanel.h"
#include "ChannelPanel.h"
#include "MaterialEditor.h"
#include "TexturePage.h"
#include <CorvexMaterial/TextureLayers.h>
#include <CorvexMaterial/TextureMembers.h>

namespace CorvexMaterial {

TextureMembers::TextureMembers() = default;

TextureMembers::~TextureMembers() = default;

TexturePage& TextureMembers::Textures()
{
    return m_editor->Form().Attributes().Channels().Textures();
}

Status TextureMembers::GetFile(const char* property, TextureLayer layer, std::string& file)
{
    return m_editor->Guard()(property, [&] { file = Textures().File(layer); });
}

Status TextureMembers::PutFile(const char* property, TextureLayer layer, const std::string& file)
{
    return m_editor->Guard()(
        property, [&] { m_editor->ChangeAtOnce([&] { Textures().SetFile(layer, file); }); });
}

Status TextureMembers::GetPlacement(const char* property,
                                    float CorvexDB::TexturePlacement::*fraction, float& value)
{
    return m_editor->Guard()(property, [&] { value = Textures().Placement().*fraction; });
}

Status TextureMembers::PutPlacement(const char* property,
                                    float CorvexDB::TexturePlacement::*fraction, float value)
{
    return m_editor->Guard()(property, [&] {
        CheckFinite(value, property);
        CorvexDB::TexturePlacement placement = Textures().Placement();
        placement.*fraction = value;
        m_editor->ChangeAtOnce([&] { Textures().SetPlacement(placement); });
    });
}

Status TextureMembers::get_TextureFileName(std::string& TextureFileName)
{
    return GetFile("TextureFileName", TextureLayer::Primary, TextureFileName);
}

Status TextureMembers::put_TextureFileName(const std::string& TextureFileName)
{
    return PutFile("TextureFileName", TextureLayer::Primary, TextureFileName);
}

Status TextureMembers::get_TextureOverlayFileName(std::string& TextureOverlayFileName)
{
    return GetFile("TextureOverlayFileName", TextureLayer::Overlay, TextureOverlayFileName);
}

Status TextureMembers::put_TextureOverlayFileName(const std::string& TextureOverlayFileName)
{
    return PutFile("TextureOverlayFileName", TextureLayer::Overlay, TextureOverlayFileName);
}

Status TextureMembers::get_TextureBumpmapFileName(std::string& TextureBumpmapFileName)
{
    return GetFile("TextureBumpmapFileName", TextureLayer::Bump, TextureBumpmapFileName);
}

Status TextureMembers::put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName)
{
    return PutFile("TextureBumpmapFileName", TextureLayer::Bump, TextureBumpmapFileName);
}

Status TextureMembers::get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName)
{
    return GetFile("TextureSpecularMapFileName", TextureLayer::Specular,
                   TextureSpecularMapFileName);
}

Status TextureMembers::put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName)
{
    return PutFile("TextureSpecularMapFileName", TextureLayer::Specular,
                   TextureSpecularMapFileName);
}

Status TextureMembers::get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName)
{
    return GetFile("TextureEnvironmentMapFileName", TextureLayer::Environment,
                   TextureEnvironmentMapFileName);
}

Status
TextureMembers::put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName)
{
    return PutFile("TextureEnvironmentMapFileName", TextureLayer::Environment,
                   TextureEnvironmentMapFileName);
}

Status TextureMembers::get_TextureAlphaFileName(std::string& TextureAlphaFileName)
{
    return GetFile("TextureAlphaFileName", TextureLayer::Alpha, TextureAlphaFileName);
}

Status TextureMembers::put_TextureAlphaFileName(const std::string& TextureAlphaFileName)
{
    return PutFile("TextureAlphaFileName", TextureLayer::Alpha, TextureAlphaFileName);
}

Status TextureMembers::get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] { FlatWrapType = Textures().FlatWrap(); });
}

Status TextureMembers::put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType)
{
    return m_editor->Guard()("FlatWrapType", [&] {
        m_editor->ChangeAtOnce([&] { Textures().SetFlatWrap(FlatWrapType); });
    });
}

Status TextureMembers::get_TextureTilesPerUnit(float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit",
                             [&] { TextureTilesPerUnit = Textures().TilesPerUnit(); });
}

Status TextureMembers::put_TextureTilesPerUnit(const float& TextureTilesPerUnit)
{
    return m_editor->Guard()("TextureTilesPerUnit", [&] {
        CheckFinite(TextureTilesPerUnit, "TextureTilesPerUnit");
        m_editor->ChangeAtOnce([&] { Textures().SetTilesPerUnit(TextureTilesPerUnit); });
    });
}

Status TextureMembers::get_TextureOriginU(float& TextureOriginU)
{
    return GetPlacement("TextureOriginU", &CorvexDB::TexturePlacement::originU, TextureOriginU);
}

Status TextureMembers::put_TextureOriginU(const float& TextureOriginU)
{
    return PutPlacement("TextureOriginU", &CorvexDB::TexturePlacement::originU, TextureOriginU);
}

Status TextureMembers::get_TextureOriginV(float& TextureOriginV)
{
    return GetPlacement("TextureOriginV", &CorvexDB::TexturePlacement::originV, TextureOriginV);
}

Status TextureMembers::put_TextureOriginV(const float& TextureOriginV)
{
    return PutPlacement("TextureOriginV", &CorvexDB::TexturePlacement::originV, TextureOriginV);
}

Status TextureMembers::get_TextureScaleU(float& TextureScaleU)
{
    return GetPlacement("TextureScaleU", &CorvexDB::TexturePlacement::scaleU, TextureScaleU);
}

Status TextureMembers::put_TextureScaleU(const float& TextureScaleU)
{
    return PutPlacement("TextureScaleU", &CorvexDB::TexturePlacement::scaleU, TextureScaleU);
}

Status TextureMembers::get_TextureScaleV(float& TextureScaleV)
{
    return GetPlacement("TextureScaleV", &CorvexDB::TexturePlacement::scaleV, TextureScaleV);
}

Status TextureMembers::put_TextureScaleV(const float& TextureScaleV)
{
    return PutPlacement("TextureScaleV", &CorvexDB::TexturePlacement::scaleV, TextureScaleV);
}

Status TextureMembers::get_WrapType(CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()("WrapType", [&] { WrapType = Textures().Wrap(); });
}

Status TextureMembers::put_WrapType(const CorvexDB::WrapType& WrapType)
{
    return m_editor->Guard()(
        "WrapType", [&] { m_editor->ChangeAtOnce([&] { Textures().SetWrap(WrapType); }); });
}

Status TextureMembers::get_MaterialWrapOrientationU(float& MaterialWrapOrientationU)
{
    return m_editor->Guard()("MaterialWrapOrientationU",
                             [&] { MaterialWrapOrientationU = Textures().FlipU() ? 1.0F : 0.0F; });
}

Status TextureMembers::get_MaterialWrapOrientationV(float& MaterialWrapOrientationV)
{
    return m_editor->Guard()("MaterialWrapOrientationV",
                             [&] { MaterialWrapOrientationV = Textures().FlipV() ? 1.0F : 0.0F; });
}

Status TextureMembers::SetTexturesAvoidStateChange(
    const std::string& stTextureFileName, const std::string& stTextureAlphaFileName,
    const std::string& stTextureOverlayFileName, const std::string& stTextureBumpMapFileName,
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

Status TextureMembers::SetTextureCropping(const float& stTextureOriginU,
                                          const float& stTextureOriginV,
                                          const float& stTextureScaleU,
                                          const float& stTextureScaleV)
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
