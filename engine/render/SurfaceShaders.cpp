#include "SurfaceShaders.h"

#include "DrawList.h"
#include "ShaderTexts.h"

#include <QByteArray>

namespace studio {
namespace {

constexpr std::array<const char*, 5> kCoordinateDefines{
    "", "#define COORDINATES_MESH\n", "#define COORDINATES_WRAP\n#define COORDINATES_SPHERICAL\n",
    "#define COORDINATES_WRAP\n#define COORDINATES_FLAT\n",
    "#define COORDINATES_WRAP\n#define COORDINATES_CYLINDRICAL\n"};

constexpr std::array<const char*, 6> kPrimaryAlphaDefines{"",
                                                          "#define ALPHA_IS_OPACITY\n",
                                                          "#define ALPHA_IS_TRANSPARENCY\n",
                                                          "#define ALPHA_IS_HEIGHT\n",
                                                          "#define ALPHA_IS_HIGHLIGHT\n",
                                                          "#define ALPHA_IS_REFLECTION\n"};

std::string LayerDefinesOf(const SurfaceVariant& variant)
{
    std::string defines = kCoordinateDefines[static_cast<std::size_t>(variant.coordinates)];
    defines += kPrimaryAlphaDefines[static_cast<std::size_t>(variant.layers.primaryAlpha)];
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        if (variant.layers.Has(static_cast<Layer>(i))) {
            defines += std::string("#define LAYER_") + kLayerRows[i].name + '\n';
        }
    }
    return defines;
}

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
    return variant.layers.Empty() ? defines : defines + LayerDefinesOf(variant);
}

/// What the shader takes from the material model.
std::string ConstantsText()
{
    const auto number = [](float value) {
        return QByteArray::number(static_cast<double>(value), 'f', 6).toStdString();
    };
    const auto constant = [&](const char* name, float value) {
        return std::string("const float ") + name + " = " + number(value) + ";\n";
    };
    return constant("bumpHeight", kBumpHeight) + constant("reflectionAtFront", kReflectionAtFront) +
           constant("reflectionFalloff", kReflectionFalloff) +
           "const vec3 luminanceWeights = vec3(" + number(kLuminance[0]) + ", " +
           number(kLuminance[1]) + ", " + number(kLuminance[2]) + ");\n";
}

ShaderSources SourcesOf(const SurfaceVariant& variant)
{
    const std::string head = kGlslVersion + DefinesOf(variant);
    return {head + std::string(shaders::kSurfaceVertex),
            head + ConstantsText() + std::string(shaders::kSurfaceCoordinates) +
                std::string(shaders::kSurfaceLayers) + std::string(shaders::kSurfaceFragment)};
}

}  // namespace

SurfaceShader::SurfaceShader(const SurfaceVariant& variant)
    : m_program(SourcesOf(variant)), m_textured(!variant.layers.Empty()),
      m_clipFromEye(m_program.Uniform("clipFromEye")),
      m_worldFromEye(m_program.Uniform("worldFromEye")), m_viewer(m_program.Uniform("viewer")),
      m_eyeFromMesh(m_program.Uniform("eyeFromMesh")),
      m_eyeNormalFromMesh(m_program.Uniform("eyeNormalFromMesh")),
      m_base(m_program.Uniform("base")), m_emission(m_program.Uniform("emission")),
      m_diffuse(m_program.Uniform("diffuse")), m_highlight(m_program.Uniform("highlight")),
      m_shininess(m_program.Uniform("shininess")), m_opacity(m_program.Uniform("opacity")),
      m_alphaReference(m_program.Uniform("alphaReference")),
      m_highlightCost(m_program.Uniform("highlightCost")),
      m_overlayOpacity(m_program.Uniform("overlayOpacity")),
      m_wrapFromMesh(m_program.Uniform("wrapFromMesh")),
      m_wrapNormalFromMesh(m_program.Uniform("wrapNormalFromMesh")),
      m_tiles(m_program.Uniform("tiles")), m_flip(m_program.Uniform("flip")),
      m_crop(m_program.Uniform("crop"))
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
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        glUniform1i(m_program.Uniform(kLayerRows[i].name), kFirstLayerUnit + static_cast<int>(i));
    }
}

void SurfaceShader::Use(const SurfaceView& view) const
{
    m_program.Use();
    glUniformMatrix4fv(m_clipFromEye, 1, GL_FALSE, view.clipFromEye.constData());
    glUniformMatrix4fv(m_worldFromEye, 1, GL_FALSE, view.worldFromEye.constData());
    glUniform4f(m_viewer, view.viewer.x(), view.viewer.y(), view.viewer.z(), view.viewer.w());
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
    if (m_textured) {
        SetTextures(item);
    }
}

void SurfaceShader::SetTextures(const DrawItem& item) const
{
    const auto set = [](GLint place, const QVector4D& value) {
        glUniform4f(place, value.x(), value.y(), value.z(), value.w());
    };
    const WrapTerms& wrap = item.wrap;
    glUniform1f(m_highlightCost, item.terms.highlightCost);
    glUniform1f(m_overlayOpacity, item.overlayOpacity);
    glUniformMatrix4fv(m_wrapFromMesh, 1, GL_FALSE, wrap.wrapFromMesh.constData());
    glUniformMatrix3fv(m_wrapNormalFromMesh, 1, GL_FALSE, wrap.wrapNormalFromMesh.constData());
    static_assert(sizeof(wrap.tiles) ==
                  sizeof(float) * 6 * std::tuple_size_v<decltype(wrap.tiles)>);
    glUniformMatrix3x2fv(m_tiles, static_cast<GLsizei>(wrap.tiles.size()), GL_FALSE,
                         reinterpret_cast<const float*>(wrap.tiles.data()));
    set(m_flip, wrap.flip);
    set(m_crop, wrap.crop);
}

const SurfaceShader& SurfaceShaders::Shader(const SurfaceVariant& variant)
{
    return m_shaders.try_emplace(variant, variant).first->second;
}

}  // namespace studio
