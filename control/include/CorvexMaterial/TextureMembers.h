#pragma once

#include <CorvexMaterial/Export.h>
#include <CorvexMaterial/IMaterial.h>

#include <cstdint>
#include <memory>
#include <string>

namespace CorvexMaterial {

class MaterialEditor;
class TexturePage;
enum class TextureLayer : std::uint8_t;

/// The part of `Material` that answers for the texture layers, their wrap and placement.
class CORVEX_EXPORT TextureMembers : public IMaterial {
public:
    Status SetTexturesAvoidStateChange(const std::string& stTextureFileName,
                                       const std::string& stTextureAlphaFileName,
                                       const std::string& stTextureOverlayFileName,
                                       const std::string& stTextureBumpMapFileName,
                                       const std::string& stTextureSpecularMapFileName,
                                       const std::string& stTextureEnvironmentMapFileName) override;
    Status SetTextureCropping(const float& stTextureOriginU, const float& stTextureOriginV,
                              const float& stTextureScaleU, const float& stTextureScaleV) override;

    Status get_TextureFileName(std::string& TextureFileName) override;
    Status put_TextureFileName(const std::string& TextureFileName) override;
    Status get_TextureOverlayFileName(std::string& TextureOverlayFileName) override;
    Status put_TextureOverlayFileName(const std::string& TextureOverlayFileName) override;
    Status get_TextureBumpmapFileName(std::string& TextureBumpmapFileName) override;
    Status put_TextureBumpmapFileName(const std::string& TextureBumpmapFileName) override;
    Status get_TextureSpecularMapFileName(std::string& TextureSpecularMapFileName) override;
    Status put_TextureSpecularMapFileName(const std::string& TextureSpecularMapFileName) override;
    Status get_TextureEnvironmentMapFileName(std::string& TextureEnvironmentMapFileName) override;
    Status
    put_TextureEnvironmentMapFileName(const std::string& TextureEnvironmentMapFileName) override;
    Status get_TextureAlphaFileName(std::string& TextureAlphaFileName) override;
    Status put_TextureAlphaFileName(const std::string& TextureAlphaFileName) override;
    Status get_FlatWrapType(CorvexDB::FlatWrapType& FlatWrapType) override;
    Status put_FlatWrapType(const CorvexDB::FlatWrapType& FlatWrapType) override;
    Status get_TextureTilesPerUnit(float& TextureTilesPerUnit) override;
    Status put_TextureTilesPerUnit(const float& TextureTilesPerUnit) override;
    Status get_TextureOriginU(float& TextureOriginU) override;
    Status put_TextureOriginU(const float& TextureOriginU) override;
    Status get_TextureOriginV(float& TextureOriginV) override;
    Status put_TextureOriginV(const float& TextureOriginV) override;
    Status get_TextureScaleU(float& TextureScaleU) override;
    Status put_TextureScaleU(const float& TextureScaleU) override;
    Status get_TextureScaleV(float& TextureScaleV) override;
    Status put_TextureScaleV(const float& TextureScaleV) override;
    Status get_WrapType(CorvexDB::WrapType& WrapType) override;
    Status put_WrapType(const CorvexDB::WrapType& WrapType) override;
    Status get_MaterialWrapOrientationU(float& MaterialWrapOrientationU) override;
    Status get_MaterialWrapOrientationV(float& MaterialWrapOrientationV) override;

protected:
    TextureMembers();
    ~TextureMembers() override;

    std::unique_ptr<MaterialEditor> m_editor;  ///< made by `Material`

private:
    TexturePage& Textures();
    Status GetFile(const char* property, TextureLayer layer, std::string& file);
    Status PutFile(const char* property, TextureLayer layer, const std::string& file);
    Status GetPlacement(const char* property, float CorvexDB::TexturePlacement::*fraction,
                        float& value);
    Status PutPlacement(const char* property, float CorvexDB::TexturePlacement::*fraction,
                        float value);
};

}  // namespace CorvexMaterial
