#include "MtlxImageGraph.h"

#include "MaterialModel.h"
#include "PlainNumbers.h"
#include "TextureReference.h"

namespace studio {

using CorvexDB::udtMaterial;

MtlxCoverage CoverageOf(const udtMaterial& material, AlphaChannels& alpha)
{
    if (!material.Textures.alpha.empty()) {
        return MtlxCoverage::AlphaMap;
    }
    const bool imageCovers = material.TextureAlphaChannelUse == 0 && !material.AlphaIsTransparent &&
                             alpha.In(material.Textures.primary);
    return imageCovers ? MtlxCoverage::PrimaryImage : MtlxCoverage::None;
}

MtlxImageGraph::MtlxImageGraph(MtlxWriter& out, const udtMaterial& material, MtlxCoverage coverage,
                               const std::string& folder)
    : m_out(out), m_material(material), m_coverage(coverage), m_folder(folder),
      m_window(BottomUp(WindowOf(material)))
{
}

bool MtlxImageGraph::IsNeeded(const udtMaterial& material)
{
    const auto& files = material.Textures;
    return !(files.primary.empty() && files.overlay.empty() && files.alpha.empty() &&
             files.bump.empty() && files.specular.empty());
}

bool MtlxImageGraph::HasColour(const udtMaterial& material)
{
    return !material.Textures.primary.empty() || !material.Textures.overlay.empty();
}

void MtlxImageGraph::Write(const std::string& name)
{
    m_out.Open("nodegraph", name, "");
    const std::string colour = HasColour(m_material) ? Colour() : std::string();
    const std::string coverage = m_coverage == MtlxCoverage::None ? std::string() : Coverage();
    const std::string specular = m_material.Textures.specular.empty() ? std::string() : Specular();
    const std::string normal = m_material.Textures.bump.empty() ? std::string() : Bump();
    Output("base_color", "color3", colour);
    Output("opacity", "color3", coverage);
    Output("specular", "float", specular);
    Output("normal", "vector3", normal);
    m_out.Close();
}

void MtlxImageGraph::Output(const char* name, const char* type, const std::string& node)
{
    if (!node.empty()) {
        m_out.Output((std::string(name) + "_out").c_str(), type, node);
    }
}

void MtlxImageGraph::Image(const char* name, const char* type, const std::string& file,
                           const char* space)
{
    const bool whole = m_window.IsWhole();
    m_out.Open(whole ? "image" : "tiledimage", name, type);
    m_out.Open("input", "file", "filename");
    m_out.Attribute("value", ReferenceTo(file, m_folder));
    if (*space != '\0') {
        m_out.Attribute("colorspace", space);
    }
    m_out.Close();
    if (!whole) {
        const auto pair = [](float u, float v) { return PlainNumber(u) + ", " + PlainNumber(v); };
        m_out.Value("uvtiling", "vector2", pair(m_window.scaleU, m_window.scaleV));
        m_out.Value("uvoffset", "vector2", pair(-m_window.offsetU, -m_window.offsetV));
    }
    m_out.Close();
}

std::string MtlxImageGraph::Colour()
{
    const auto& files = m_material.Textures;
    if (!files.primary.empty()) {
        Image("primary", "color3", files.primary, "srgb_texture");
    }
    const std::string picture = files.overlay.empty() ? "primary" : Layered();
    m_out.Open("multiply", "coloured", "color3");
    m_out.From("in1", "color3", picture);
    m_out.Colour("in2", LightOf(m_material.Color));
    m_out.Close();
    return "coloured";
}

std::string MtlxImageGraph::Layered()
{
    Image("overlay", "color3", m_material.Textures.overlay, "srgb_texture");
    m_out.Open("mix", "layered", "color3");
    if (m_material.Textures.primary.empty()) {
        m_out.Colour("bg", kWhiteRgb);
    } else {
        m_out.From("bg", "color3", "primary");
    }
    m_out.From("fg", "color3", "overlay");
    m_out.Number("mix", OverlayOpacityOf(m_material));
    m_out.Close();
    return "layered";
}

std::string MtlxImageGraph::Coverage()
{
    if (m_coverage == MtlxCoverage::AlphaMap) {
        Image("alpha", "color3", m_material.Textures.alpha, "");
        return "alpha";
    }
    Image("primary_rgba", "color4", m_material.Textures.primary, "srgb_texture");
    m_out.Open("extract", "primary_alpha", "float");
    m_out.From("in", "color4", "primary_rgba");
    m_out.Value("index", "integer", "3");
    m_out.Close();
    m_out.Open("convert", "coverage", "color3");
    m_out.From("in", "float", "primary_alpha");
    m_out.Close();
    return "coverage";
}

std::string MtlxImageGraph::Specular()
{
    Image("shine", "float", m_material.Textures.specular, "");
    m_out.Open("multiply", "shining", "float");
    m_out.From("in1", "float", "shine");
    m_out.Number("in2", m_material.Specular > 0 ? FractionOf(m_material.Specular) : 1.0F);
    m_out.Close();
    return "shining";
}

std::string MtlxImageGraph::Bump()
{
    Image("height", "float", m_material.Textures.bump, "");
    m_out.Open("bump", "relief", "vector3");
    m_out.From("height", "float", "height");
    m_out.Number("scale", kBumpHeight);
    m_out.Close();
    return "relief";
}

}  // namespace studio
