#include "studio/render/SurfaceShaders.h"

#include "studio/render/DrawList.h"
#include "studio/render/ShaderTexts.h"

namespace studio {
namespace {

std::string DefinesOf(const SurfaceVariant& variant)
{
    std::string defines;
    if (variant.stage == SurfaceStage::Peel) {
        defines += "#define PEEL\n";
    }
    if (variant.stage == SurfaceStage::Lit) {
        defines += "#define LIT\n";
    }
    if (variant.highlight) {
        defines += "#define HIGHLIGHT\n";
    }
    if (!variant.alphaComparison.empty()) {
        defines += "#define ALPHA_COMPARISON " + std::string(variant.alphaComparison) + '\n';
    }
    return defines;
}

ShaderSources SourcesOf(const SurfaceVariant& variant)
{
    const std::string head = kGlslVersion + DefinesOf(variant);
    return {head + std::string(shaders::kSurfaceVertex),
            head + std::string(shaders::kSurfaceFragment)};
}

}  // namespace

SurfaceShader::SurfaceShader(const SurfaceVariant& variant)
    : m_program(SourcesOf(variant)), m_clipFromEye(m_program.Uniform("clipFromEye")),
      m_eyeFromMesh(m_program.Uniform("eyeFromMesh")),
      m_eyeNormalFromMesh(m_program.Uniform("eyeNormalFromMesh")),
      m_base(m_program.Uniform("base")), m_emission(m_program.Uniform("emission")),
      m_diffuse(m_program.Uniform("diffuse")), m_highlight(m_program.Uniform("highlight")),
      m_shininess(m_program.Uniform("shininess")), m_opacity(m_program.Uniform("opacity")),
      m_alphaReference(m_program.Uniform("alphaReference"))
{
    SetConstants();
}

void SurfaceShader::SetConstants() const
{
    m_program.Use();
    glUniform3fv(m_program.Uniform("towardsKey"), 1, kKeyLight.towards.data());
    glUniform3fv(m_program.Uniform("towardsFill"), 1, kFillLight.towards.data());
    glUniform1f(m_program.Uniform("keyIntensity"), kKeyLight.intensity);
    glUniform1f(m_program.Uniform("fillIntensity"), kFillLight.intensity);
    glUniform1f(m_program.Uniform("skyIntensity"), kSkyIntensity);
    glUniform1i(m_program.Uniform("peeledDepth"), kPeeledDepthUnit);
}

void SurfaceShader::Use(const QMatrix4x4& clipFromEye) const
{
    m_program.Use();
    glUniformMatrix4fv(m_clipFromEye, 1, GL_FALSE, clipFromEye.constData());
}

void SurfaceShader::SetItem(const DrawItem& item) const
{
    const SurfaceTerms& terms = item.terms;
    glUniformMatrix4fv(m_eyeFromMesh, 1, GL_FALSE, item.eyeFromMesh.constData());
    glUniformMatrix3fv(m_eyeNormalFromMesh, 1, GL_FALSE,
                       item.eyeFromMesh.normalMatrix().constData());
    glUniform3f(m_base, terms.base.red, terms.base.green, terms.base.blue);
    glUniform1f(m_emission, terms.emission);
    glUniform1f(m_diffuse, terms.diffuse);
    glUniform1f(m_highlight, terms.highlight);
    glUniform1f(m_shininess, terms.shininess);
    glUniform1f(m_opacity, terms.opacity);
    glUniform1i(m_alphaReference, item.alphaTest.reference);
}

const SurfaceShader& SurfaceShaders::Shader(const SurfaceVariant& variant)
{
    return m_shaders.try_emplace(variant, variant).first->second;
}

}  // namespace studio
