#pragma once

#include "MaterialModel.h"
#include "Program.h"
#include "SurfaceLayers.h"
#include "WrapCoordinates.h"

#include <QMatrix4x4>

#include <compare>
#include <map>
#include <string>
#include <string_view>

namespace studio {

struct DrawItem;

inline const std::string kGlslVersion = "#version 330 core\n";

/// Lit: as it looks, premultiplied by its opacity. Shape: white. Peel: white, without what is no
/// farther than the depths already peeled.
enum class SurfaceStage { Lit, Shape, Peel };

/// What is compiled into a shader instead of being asked per fragment.
struct SurfaceVariant {
    SurfaceStage stage = SurfaceStage::Lit;
    std::string_view alphaComparison;  ///< empty = no alpha test
    bool highlight = false;
    LayerSet layers;
    CoordinateKind coordinates = CoordinateKind::None;

    auto operator<=>(const SurfaceVariant&) const = default;
};

/// The texture unit that a peel reads from.
inline constexpr int kPeeledDepthUnit = 0;
/// The units of the layers, in their order, begin here.
inline constexpr int kFirstLayerUnit = 1;

/// What all items of a picture have in common.
struct SurfaceView {
    QMatrix4x4 clipFromEye;
    QMatrix4x4 worldFromEye;
    QVector4D viewer;  ///< where the eye is in its own space; a direction in a parallel view
};

class SurfaceShader {
public:
    explicit SurfaceShader(const SurfaceVariant& variant);
    /// For the items that follow.
    void Use(const SurfaceView& view) const;
    /// The item's transformation and material; the shader is in use.
    void SetItem(const DrawItem& item) const;

private:
    void SetConstants() const;
    void SetTextures(const DrawItem& item) const;

    Program m_program;
    bool m_textured;
    GLint m_clipFromEye;
    GLint m_worldFromEye;
    GLint m_viewer;
    GLint m_eyeFromMesh;
    GLint m_eyeNormalFromMesh;
    GLint m_base;
    GLint m_emission;
    GLint m_diffuse;
    GLint m_highlight;
    GLint m_shininess;
    GLint m_opacity;
    GLint m_alphaReference;
    GLint m_highlightCost;
    GLint m_overlayOpacity;
    GLint m_wrapFromMesh;
    GLint m_wrapNormalFromMesh;
    GLint m_tiles;
    GLint m_flip;
    GLint m_crop;
};

/// Compiles each variant when it is first needed.
class SurfaceShaders {
public:
    const SurfaceShader& Shader(const SurfaceVariant& variant);

private:
    std::map<SurfaceVariant, SurfaceShader> m_shaders;
};

}  // namespace studio
