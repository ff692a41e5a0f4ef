#include "studio/import/ShapeNames.h"
#include "studio/interchange/Amounts.h"
#include "studio/interchange/MtlxMaterials.h"
#include "studio/interchange/NumberText.h"
#include "studio/interchange/TextureReference.h"
#include "studio/interchange/UniqueNames.h"
#include "studio/render/MaterialModel.h"

#include <QCoreApplication>
#include <QXmlStreamWriter>

#include <algorithm>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kMtlxOnlyRaytracer =
    QT_TRANSLATE_NOOP("Interchange", "only a raytracer knows it");

constexpr FormatTable kMtlxTable{{
    {Property::Colour, Outcome::Mapped, "base_color, base 1", ""},
    {Property::Ambient, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "light from all around is the scene's, not a material's")},
    {Property::Emissive, Outcome::Mapped, "emission, emission_color", ""},
    {Property::Specular, Outcome::Mapped, "specular", ""},
    {Property::Transparency, Outcome::Mapped, "transmission, thin_walled", ""},
    {Property::DoubleSided, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format does not tell sides")},
    {Property::AlphaTest, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no alpha test")},
    {Property::PrimaryTexture, Outcome::Mapped, "image, multiply into base_color", ""},
    {Property::AlphaChannel, Outcome::Dropped, "extract into opacity",
     QT_TRANSLATE_NOOP("Interchange", "only coverage is written")},
    {Property::OverlayTexture, Outcome::Approximated, "image, mix into base_color",
     QT_TRANSLATE_NOOP("Interchange", "its alpha channel does not count")},
    {Property::AlphaMap, Outcome::Mapped, "image into opacity", ""},
    {Property::BumpMap, Outcome::Mapped, "image, bump into normal", ""},
    {Property::SpecularMap, Outcome::Mapped, "image, multiply into specular", ""},
    {Property::EnvironmentMap, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "what is mirrored is the scene's, not a material's")},
    {Property::Placement, Outcome::Mapped, "tiledimage: uvtiling, uvoffset", ""},
    {Property::Wrap, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "where an image lies is up to the model's coordinates")},
    {Property::Roughness, Outcome::Mapped, "specular_roughness", ""},
    {Property::Metallic, Outcome::Mapped, "metalness", ""},
    {Property::Reflection, Outcome::Approximated, "coat",
     QT_TRANSLATE_NOOP("Interchange", "as a clear coat")},
    {Property::Brilliance, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Property::Iridescence, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Property::NormalPattern, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Property::ColourPattern, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Property::Predefined, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Property::Plugin, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "other programs do not have the plug-in")},
    {Property::CustomFields, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no place for them")},
}};
static_assert(FollowsProperties(kMtlxTable));

/// Height of a bump, white above black, as a part of the image's length.
constexpr float kBumpHeight = 0.03F;

QString Text(const std::string& text)
{
    return QString::fromStdString(text);
}

/// Letters, digits and underscores, as the format wants names.
std::string IdentifierOf(const std::string& name)
{
    std::string identifier = name;
    std::ranges::replace_if(
        identifier,
        [](char letter) {
            return !((letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                     (letter >= '0' && letter <= '9'));
        },
        '_');
    const bool startsWell = !identifier.empty() && (identifier[0] < '0' || identifier[0] > '9');
    return startsWell ? identifier : "_" + identifier;
}

/// Elements of a document.
class MtlxWriter {
public:
    explicit MtlxWriter(QByteArray& bytes) : m_xml(&bytes)
    {
        m_xml.setAutoFormatting(true);
        m_xml.setAutoFormattingIndent(2);
        m_xml.writeStartDocument();
        m_xml.writeStartElement("materialx");
        m_xml.writeAttribute("version", "1.38");
        m_xml.writeAttribute("colorspace", "lin_rec709");
    }

    void Finish() { m_xml.writeEndDocument(); }

    void Open(const char* category, const std::string& name, const char* type)
    {
        m_xml.writeStartElement(QLatin1String(category));
        m_xml.writeAttribute("name", Text(name));
        if (*type != '\0') {
            m_xml.writeAttribute("type", QLatin1String(type));
        }
    }
    void Attribute(const char* name, const std::string& value)
    {
        m_xml.writeAttribute(QLatin1String(name), Text(value));
    }
    void Close() { m_xml.writeEndElement(); }

    void Value(const char* input, const char* type, const std::string& value)
    {
        Put(input, type, "value", value);
    }
    void Number(const char* input, float value) { Value(input, "float", PlainNumber(value)); }
    void Colour(const char* input, Rgb value) { Value(input, "color3", PlainNumbers(value, ", ")); }
    void From(const char* input, const char* type, const std::string& node)
    {
        Put(input, type, "nodename", node);
    }
    void Output(const char* name, const char* type, const std::string& node)
    {
        Open("output", name, type);
        Attribute("nodename", node);
        Close();
    }

private:
    void Put(const char* input, const char* type, const char* attribute, const std::string& value)
    {
        Open("input", input, type);
        Attribute(attribute, value);
        Close();
    }

    QXmlStreamWriter m_xml;
};

/// The node graph of a material's images; each output is named like the input it is for.
class ImageGraph {
public:
    ImageGraph(MtlxWriter& out, const udtMaterial& material, const std::string& folder)
        : m_out(out), m_material(material), m_folder(folder), m_window(BottomUp(WindowOf(material)))
    {
    }

    /// False when there is nothing to write.
    static bool IsNeeded(const udtMaterial& material)
    {
        const auto& files = material.Textures;
        return !(files.primary.empty() && files.overlay.empty() && files.alpha.empty() &&
                 files.bump.empty() && files.specular.empty());
    }
    static bool HasColour(const udtMaterial& material)
    {
        return !material.Textures.primary.empty() || !material.Textures.overlay.empty();
    }
    static bool ImageCovers(const udtMaterial& material)
    {
        return material.Textures.alpha.empty() && material.TextureAlphaChannelUse == 0 &&
               !material.AlphaIsTransparent && HasAlphaChannel(material.Textures.primary);
    }
    static bool HasCoverage(const udtMaterial& material)
    {
        return !material.Textures.alpha.empty() || ImageCovers(material);
    }

    void Write(const std::string& name)
    {
        m_out.Open("nodegraph", name, "");
        const std::string colour = HasColour(m_material) ? Colour() : std::string();
        const std::string coverage = HasCoverage(m_material) ? Coverage() : std::string();
        const std::string specular =
            m_material.Textures.specular.empty() ? std::string() : Specular();
        const std::string normal = m_material.Textures.bump.empty() ? std::string() : Bump();
        Output("base_color", "color3", colour);
        Output("opacity", "color3", coverage);
        Output("specular", "float", specular);
        Output("normal", "vector3", normal);
        m_out.Close();
    }

private:
    void Output(const char* name, const char* type, const std::string& node)
    {
        if (!node.empty()) {
            m_out.Output((std::string(name) + "_out").c_str(), type, node);
        }
    }

    void Image(const char* name, const char* type, const std::string& file, const char* space)
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
            const auto pair = [](float u, float v) {
                return PlainNumber(u) + ", " + PlainNumber(v);
            };
            m_out.Value("uvtiling", "vector2", pair(m_window.scaleU, m_window.scaleV));
            m_out.Value("uvoffset", "vector2", pair(-m_window.offsetU, -m_window.offsetV));
        }
        m_out.Close();
    }

    std::string Colour()
    {
        const auto& files = m_material.Textures;
        if (!files.primary.empty()) {
            Image("primary", "color3", files.primary, "srgb_texture");
        }
        std::string picture = "primary";
        if (!files.overlay.empty()) {
            Image("overlay", "color3", files.overlay, "srgb_texture");
            m_out.Open("mix", "layered", "color3");
            if (files.primary.empty()) {
                m_out.Colour("bg", kWhiteRgb);
            } else {
                m_out.From("bg", "color3", "primary");
            }
            m_out.From("fg", "color3", "overlay");
            m_out.Number("mix", OverlayOpacityOf(m_material));
            m_out.Close();
            picture = "layered";
        }
        m_out.Open("multiply", "coloured", "color3");
        m_out.From("in1", "color3", picture);
        m_out.Colour("in2", LightOf(m_material.Color));
        m_out.Close();
        return "coloured";
    }

    std::string Coverage()
    {
        if (!ImageCovers(m_material)) {
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

    std::string Specular()
    {
        Image("shine", "float", m_material.Textures.specular, "");
        m_out.Open("multiply", "shining", "float");
        m_out.From("in1", "float", "shine");
        m_out.Number("in2", m_material.Specular > 0 ? FractionOf(m_material.Specular) : 1.0F);
        m_out.Close();
        return "shining";
    }

    std::string Bump()
    {
        Image("height", "float", m_material.Textures.bump, "");
        m_out.Open("bump", "relief", "vector3");
        m_out.From("height", "float", "height");
        m_out.Number("scale", kBumpHeight);
        m_out.Close();
        return "relief";
    }

    MtlxWriter& m_out;
    const udtMaterial& m_material;
    const std::string& m_folder;
    ImageWindow m_window;
};

/// The shader of a material; images come from the graph, whose name may be empty.
class SurfaceWriting {
public:
    SurfaceWriting(MtlxWriter& out, const udtMaterial& material, std::string graph)
        : m_out(out), m_material(material), m_graph(std::move(graph))
    {
    }

    void Write(const std::string& name)
    {
        m_out.Open("standard_surface", name, "surfaceshader");
        m_out.Number("base", 1.0F);
        WriteColour("base_color");
        WriteHighlight();
        WriteRest();
        WriteGlow();
        if (!m_material.Textures.bump.empty()) {
            FromGraph("normal", "vector3", "normal_out");
        }
        m_out.Close();
    }

private:
    void FromGraph(const char* input, const char* type, const char* output)
    {
        m_out.Open("input", input, type);
        m_out.Attribute("nodegraph", m_graph);
        m_out.Attribute("output", output);
        m_out.Close();
    }

    void WriteColour(const char* input)
    {
        if (ImageGraph::HasColour(m_material)) {
            FromGraph(input, "color3", "base_color_out");
        } else {
            m_out.Colour(input, LightOf(m_material.Color));
        }
    }

    void WriteHighlight()
    {
        if (m_material.Textures.specular.empty()) {
            m_out.Number("specular", FractionOf(m_material.Specular));
        } else {
            FromGraph("specular", "float", "specular_out");
        }
        m_out.Number("specular_roughness", PhysicalRoughnessOf(m_material.RayTrace.Roughness));
    }

    void WriteRest()
    {
        if (m_material.RayTrace.Metallic) {
            m_out.Number("metalness", 1.0F);
        }
        if (m_material.RayTrace.Reflection > 0.0F) {
            m_out.Number("coat", CutToUnit(m_material.RayTrace.Reflection / 10.0F));
            m_out.Number("coat_roughness", 0.0F);
        }
        if (m_material.Transparency > 0) {
            m_out.Number("transmission", FractionOf(m_material.Transparency));
            m_out.Value("thin_walled", "boolean", "true");
        }
        if (ImageGraph::HasCoverage(m_material)) {
            FromGraph("opacity", "color3", "opacity_out");
        }
    }

    void WriteGlow()
    {
        const float share = LinearFromEncoded(FractionOf(m_material.Emissive));
        if (share > 0.0F) {
            m_out.Number("emission", share);
            WriteColour("emission_color");
        }
    }

    MtlxWriter& m_out;
    const udtMaterial& m_material;
    std::string m_graph;
};

void NoteSpecialCases(const udtMaterial& material, ExportNotes& notes)
{
    if (ImageGraph::ImageCovers(material)) {
        notes.Say(Property::AlphaChannel, Outcome::Mapped, "");
    }
    if (material.Emissive > 0 && Strongest(LightOf(material.Color)) <= 0.0F) {
        notes.Say(Property::Emissive, Outcome::Dropped,
                  QT_TRANSLATE_NOOP("Interchange", "a black surface gives off nothing"));
    }
}

void WriteMaterial(MtlxWriter& out, const NamedMaterial& named, const std::string& folder,
                   UniqueNames& names)
{
    const std::string shown = ReadableName(named.name, "Material");
    const std::string name = names.Take(IdentifierOf(shown), "_");
    const std::string shader = names.Take("SR_" + name, "_");
    std::string graph;
    if (ImageGraph::IsNeeded(named.material)) {
        graph = names.Take("NG_" + name, "_");
        ImageGraph(out, named.material, folder).Write(graph);
    }
    SurfaceWriting(out, named.material, graph).Write(shader);
    out.Open("surfacematerial", name, "material");
    if (shown != name) {
        out.Attribute("uiname", shown);
    }
    out.From("surfaceshader", "surfaceshader", shader);
    out.Close();
}

}  // namespace

const FormatTable& MtlxTable()
{
    return kMtlxTable;
}

QByteArray MtlxOf(std::span<const NamedMaterial> materials, const std::string& folder,
                  Report& report)
{
    QByteArray bytes;
    MtlxWriter out(bytes);
    UniqueNames names;
    for (const NamedMaterial& named : materials) {
        WriteMaterial(out, named, folder, names);
        ExportNotes notes(named, kMtlxTable);
        NoteSpecialCases(named.material, notes);
        notes.AddTo(report);
    }
    out.Finish();
    return bytes;
}

}  // namespace studio
