#include "MaterialModel.h"
#include "MtlxImageGraph.h"
#include "MtlxMaterials.h"
#include "ShapeNames.h"
#include "TextureReference.h"
#include "UniqueNames.h"

#include <QCoreApplication>

#include <algorithm>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kMtlxOnlyRaytracer =
    QT_TRANSLATE_NOOP("Interchange", "only a raytracer knows it");

constexpr FormatTable kMtlxTable{{
    {Attribute::Color, Outcome::Mapped, "base_color, base 1", ""},
    {Attribute::Ambient, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "light from all around is the scene's, not a material's")},
    {Attribute::Emissive, Outcome::Mapped, "emission, emission_color", ""},
    {Attribute::Specular, Outcome::Mapped, "specular", ""},
    {Attribute::Transparency, Outcome::Mapped, "transmission, thin_walled", ""},
    {Attribute::DoubleSided, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format does not tell sides")},
    {Attribute::AlphaTest, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no alpha test")},
    {Attribute::Texture, Outcome::Mapped, "image, multiply into base_color", ""},
    {Attribute::TextureAlphaChannelUse, Outcome::Dropped, "extract into opacity",
     QT_TRANSLATE_NOOP("Interchange", "only coverage is written")},
    {Attribute::TextureOverlay, Outcome::Approximated, "image, mix into base_color",
     QT_TRANSLATE_NOOP("Interchange", "its alpha channel does not count")},
    {Attribute::TextureAlpha, Outcome::Mapped, "image into opacity", ""},
    {Attribute::TextureBumpmap, Outcome::Mapped, "image, bump into normal", ""},
    {Attribute::TextureSpecularMap, Outcome::Mapped, "image, multiply into specular", ""},
    {Attribute::TextureEnvironmentMap, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "what is mirrored is the scene's, not a material's")},
    {Attribute::OriginU, Outcome::Mapped, "tiledimage: uvtiling, uvoffset", ""},
    {Attribute::WrapType, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "where an image lies is up to the model's coordinates")},
    {Attribute::RayTraceRoughness, Outcome::Mapped, "specular_roughness", ""},
    {Attribute::RayTraceMetallic, Outcome::Mapped, "metalness", ""},
    {Attribute::RayTraceReflection, Outcome::Approximated, "coat",
     QT_TRANSLATE_NOOP("Interchange", "as a clear coat")},
    {Attribute::RayTraceBrilliance, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Attribute::RayTraceIridescenceFactor, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Attribute::RayTraceNormalPattern, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Attribute::RaytraceColorPattern, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Attribute::RaytracePredefinedMaterial, Outcome::Dropped, "", kMtlxOnlyRaytracer},
    {Attribute::Plugin, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "other programs do not have the plug-in")},
    {Attribute::CustomFields, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no place for them")},
}};
static_assert(TellsEveryAttribute(kMtlxTable));

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

/// The shader of a material; images come from the graph, whose name may be empty.
class SurfaceWriting {
public:
    SurfaceWriting(MtlxWriter& out, const udtMaterial& material, MtlxCoverage coverage,
                   std::string graph)
        : m_out(out), m_material(material), m_coverage(coverage), m_graph(std::move(graph))
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
        if (MtlxImageGraph::HasColour(m_material)) {
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
        if (m_coverage != MtlxCoverage::None) {
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
    MtlxCoverage m_coverage;
    std::string m_graph;
};

void NoteSpecialCases(const udtMaterial& material, MtlxCoverage coverage, ExportNotes& notes)
{
    if (coverage == MtlxCoverage::PrimaryImage) {
        notes.Say(Attribute::TextureAlphaChannelUse, Outcome::Mapped, "");
    }
    if (material.Emissive > 0 && Strongest(LightOf(material.Color)) <= 0.0F) {
        notes.Say(Attribute::Emissive, Outcome::Dropped,
                  QT_TRANSLATE_NOOP("Interchange", "a black surface gives off nothing"));
    }
}

struct MtlxTarget {
    MtlxWriter out;
    const std::string& folder;
    UniqueNames names;
};

void WriteMaterial(MtlxTarget& target, const NamedMaterial& named, MtlxCoverage coverage)
{
    MtlxWriter& out = target.out;
    const std::string shown = ReadableName(named.name, "Material");
    const std::string name = target.names.Take(IdentifierOf(shown), "_");
    const std::string shader = target.names.Take("SR_" + name, "_");
    std::string graph;
    if (MtlxImageGraph::IsNeeded(named.material)) {
        graph = target.names.Take("NG_" + name, "_");
        MtlxImageGraph(out, named.material, coverage, target.folder).Write(graph);
    }
    SurfaceWriting(out, named.material, coverage, graph).Write(shader);
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
    MtlxTarget target{MtlxWriter(bytes), folder, {}};
    AlphaChannels alpha;
    for (const NamedMaterial& named : materials) {
        const MtlxCoverage coverage = CoverageOf(named.material, alpha);
        WriteMaterial(target, named, coverage);
        ExportNotes notes(named, kMtlxTable, Wearers::Samples);
        NoteSpecialCases(named.material, coverage, notes);
        notes.AddTo(report);
    }
    target.out.Finish();
    return bytes;
}

}  // namespace studio
