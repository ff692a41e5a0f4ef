#pragma once

#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/RaytraceAttributes.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace CorvexDB {

using CorvexMaterial::Colour;

enum class WrapType : std::int32_t { Spherical = 0, Flat = 1, Cylindrical = 2 };
enum class FlatWrapType : std::int32_t { TileByUnit = 0, TileToFit = 1, SizeToFit = 2 };

/// How a material is put on a shape. FilesOnly is set by program only: the control then reads no
/// texture attribute but the six file names.
enum class ApplyMode : std::int32_t { Absolute = 0, Relative = 1, FilesOnly = 2 };

/// Paths of the six layers, empty = unused.
struct TextureFiles {
    std::string primary;
    std::string overlay;
    std::string alpha;
    std::string bump;
    std::string specular;
    std::string environment;
};

/// Fractions of the image, 0 to 1, from its left and top; a negative scale mirrors.
struct TexturePlacement {
    float originU = 0.0F;
    float originV = 0.0F;
    float scaleU = 1.0F;
    float scaleV = 1.0F;
};

/// Where a wrap stands around a shape, in the axes in which it is applied: those of the scene, or of
/// the shape.
struct TextureProjection {
    float x = 0.0F;  ///< scene units from where the wrap is by itself
    float y = 0.0F;
    float z = 0.0F;
    float turnX = 0.0F;  ///< degrees; about the z axis first, then x, then y
    float turnY = 0.0F;
    float turnZ = 0.0F;
};

inline constexpr int kCustomFieldCount = 6;

/// A material as the host keeps it: a plain value, copied whole.
struct udtMaterial {
    Colour Color = CorvexMaterial::kWhite;
    std::int32_t Ambient = 60;      ///< percent; not clamped by the control
    std::int32_t Emissive = 20;     ///< percent
    std::int32_t Specular = 0;      ///< percent
    std::int32_t Transparency = 0;  ///< percent
    bool WrapOrientationU = false;  ///< flipped horizontally
    bool WrapOrientationV = false;  ///< flipped vertically
    bool DoubleSided = false;
    /// When a texel's alpha is drawn, against the reference: 0 never, 1 less, 2 equal, 3 less or
    /// equal, 4 greater, 5 not equal, 6 greater or equal, 7 always.
    std::int32_t AlphaTest = 0;
    std::int32_t AlphaTestReference = 0;  ///< 0 to 255
    CorvexDB::WrapType Wrap = CorvexDB::WrapType::Spherical;
    CorvexDB::FlatWrapType FlatWrap = CorvexDB::FlatWrapType::TileByUnit;
    float TilesPerUnit = 1.0F;  ///< tiles per scene unit
    /// What a texture's alpha channel is: 0 alpha, 1 ignored, 2 bump map, 3 specular map,
    /// 4 environment map.
    std::int32_t TextureAlphaChannelUse = 0;
    bool AlphaIsTransparent = false;
    float OverlayTranslucency = 50.0F;  ///< percent
    TextureFiles Textures;
    TexturePlacement Placement;
    cdtRayTraceMaterialAttributes RayTrace;
    std::string Plugin;                   ///< name in the host's table, empty = none
    std::vector<float> PluginParameters;  ///< at most ten
    std::array<std::string, kCustomFieldCount> CustomFields;
    float TextureRotation = 0.0F;  ///< degrees counter-clockwise, in its own plane
    float TextureWidth = 0.0F;     ///< of one tile, scene units; 0: as the wrap has it
    float TextureHeight = 0.0F;    ///< likewise; if one of the two is 0, tiles are square
    TextureProjection Projection;
};

/// Of all members, as are those of the parts below.
[[nodiscard]] bool operator==(const udtMaterial& one, const udtMaterial& other);
[[nodiscard]] bool operator==(const TextureFiles& one, const TextureFiles& other);
[[nodiscard]] bool operator==(const TexturePlacement& one, const TexturePlacement& other);
[[nodiscard]] bool operator==(const TextureProjection& one, const TextureProjection& other);
[[nodiscard]] bool operator==(const cdtRayTraceMaterialAttributes& one,
                              const cdtRayTraceMaterialAttributes& other);
[[nodiscard]] inline bool operator!=(const udtMaterial& one, const udtMaterial& other)
{
    return !(one == other);
}

}  // namespace CorvexDB
