#pragma once

#include "studio/render/MaterialModel.h"
#include "studio/render/Program.h"

#include <compare>
#include <map>
#include <string>
#include <string_view>

class QMatrix4x4;

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

    auto operator<=>(const SurfaceVariant&) const = default;
};

/// The texture unit that a peel reads from.
inline constexpr int kPeeledDepthUnit = 0;

class SurfaceShader {
public:
    explicit SurfaceShader(const SurfaceVariant& variant);
    /// For the items that follow.
    void Use(const QMatrix4x4& clipFromEye) const;
    /// The item's transformation and material; the shader is in use.
    void SetItem(const DrawItem& item) const;

private:
    void SetConstants() const;

    Program m_program;
    GLint m_clipFromEye;
    GLint m_eyeFromMesh;
    GLint m_eyeNormalFromMesh;
    GLint m_base;
    GLint m_emission;
    GLint m_diffuse;
    GLint m_highlight;
    GLint m_shininess;
    GLint m_opacity;
    GLint m_alphaReference;
};

/// Compiles each variant when it is first needed.
class SurfaceShaders {
public:
    const SurfaceShader& Shader(const SurfaceVariant& variant);

private:
    std::map<SurfaceVariant, SurfaceShader> m_shaders;
};

}  // namespace studio
