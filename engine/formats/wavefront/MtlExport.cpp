#include "Amounts.h"
#include "MtlMaterials.h"
#include "MtlWriting.h"
#include "PlainNumbers.h"
#include "ShapeNames.h"
#include "TextureReference.h"
#include "UniqueNames.h"

#include <QCoreApplication>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kMtlOnlyRaytracer =
    QT_TRANSLATE_NOOP("Interchange", "only a raytracer knows it");

/// The terms are the statements that bear on the attribute; ours come first.
constexpr FormatTable kMtlTable{{
    {Attribute::Color, Outcome::Mapped, "Kd, Ke", ""},
    {Attribute::Ambient, Outcome::Mapped, "Ka", ""},
    {Attribute::Emissive, Outcome::Mapped, "Ke, illum", ""},
    {Attribute::Specular, Outcome::Mapped, "Ks, illum, Ns", ""},
    {Attribute::Transparency, Outcome::Mapped, "d, Tr", ""},
    {Attribute::DoubleSided, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format does not tell sides")},
    {Attribute::AlphaTest, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no alpha test")},
    {Attribute::Texture, Outcome::Mapped, "map_Kd", ""},
    {Attribute::TextureAlphaChannelUse, Outcome::Dropped, "map_d, bump or map_Ks with -imfchan m",
     QT_TRANSLATE_NOOP("Interchange", "the format cannot say this of an alpha channel")},
    {Attribute::TextureOverlay, Outcome::Approximated, "decal",
     QT_TRANSLATE_NOOP("Interchange", "as a decal, which covers what is below it")},
    {Attribute::TextureAlpha, Outcome::Mapped, "map_d", ""},
    {Attribute::TextureBumpmap, Outcome::Mapped, "bump", ""},
    {Attribute::TextureSpecularMap, Outcome::Mapped, "map_Ks", ""},
    {Attribute::TextureEnvironmentMap, Outcome::Approximated, "refl",
     QT_TRANSLATE_NOOP("Interchange", "programs differ in how they lay the picture around")},
    {Attribute::OriginU, Outcome::Mapped, "-o, -s", ""},
    {Attribute::WrapType, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "where an image lies is up to the model's coordinates")},
    {Attribute::RayTraceRoughness, Outcome::Mapped, "Ns", ""},
    {Attribute::RayTraceMetallic, Outcome::Approximated, "Pm",
     QT_TRANSLATE_NOOP("Interchange", "an addition that not every program reads")},
    {Attribute::RayTraceReflection, Outcome::Approximated, "Pc",
     QT_TRANSLATE_NOOP("Interchange", "as a clear coat, an addition that not every program reads")},
    {Attribute::RayTraceBrilliance, Outcome::Dropped, "", kMtlOnlyRaytracer},
    {Attribute::RayTraceIridescenceFactor, Outcome::Dropped, "", kMtlOnlyRaytracer},
    {Attribute::RayTraceNormalPattern, Outcome::Dropped, "", kMtlOnlyRaytracer},
    {Attribute::RaytraceColorPattern, Outcome::Dropped, "", kMtlOnlyRaytracer},
    {Attribute::RaytracePredefinedMaterial, Outcome::Dropped, "", kMtlOnlyRaytracer},
    {Attribute::Plugin, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "other programs do not have the plug-in")},
    {Attribute::CustomFields, Outcome::Dropped, "",
     QT_TRANSLATE_NOOP("Interchange", "the format has no place for them")},
}};
static_assert(TellsEveryAttribute(kMtlTable));

enum AlphaUse : std::int32_t { AlphaCovers = 0, AlphaBumps = 2, AlphaShines = 3 };

/// Writes the statements of one material.
class MtlStatements {
public:
    MtlStatements(const NamedMaterial& named, const std::string& folder, AlphaChannels& alpha,
                  ExportNotes& notes)
        : m_material(named.material), m_folder(folder), m_alpha(alpha), m_notes(notes),
          m_options(OptionsOf(WindowOf(named.material)))
    {
    }

    std::vector<MtlLine> Write()
    {
        WriteColours();
        WriteAmounts();
        WriteImages();
        WriteAlpha();
        WriteRelief();
        return std::move(m_lines);
    }

private:
    static std::string OptionsOf(ImageWindow topDown)
    {
        const ImageWindow window = BottomUp(topDown);
        std::string options;
        if (window.offsetU != 0.0F || window.offsetV != 0.0F) {
            options += "-o " + PlainNumber(window.offsetU) + " " + PlainNumber(window.offsetV);
            options += " 0 ";
        }
        if (window.scaleU != 1.0F || window.scaleV != 1.0F) {
            options += "-s " + PlainNumber(window.scaleU) + " " + PlainNumber(window.scaleV);
            options += " 1 ";
        }
        return options;
    }

    void Line(const std::string& keyword, const std::string& values)
    {
        m_lines.push_back({keyword, {}, values});
    }

    void WriteColours()
    {
        const Rgb colour = DisplayedOf(m_material.Color);
        const auto line = [&](const char* keyword, Rgb value) {
            Line(keyword, PlainNumbers(value, " "));
        };
        line("Ka", colour * FractionOf(m_material.Ambient));
        line("Kd", colour);
        line("Ks", kWhiteRgb * FractionOf(m_material.Specular));
        line("Ke", colour * FractionOf(m_material.Emissive));
        if (Strongest(colour) <= 0.0F) {
            const char* note =
                QT_TRANSLATE_NOOP("Interchange", "a black surface gives off nothing");
            m_notes.Say(Attribute::Ambient, Outcome::Dropped, note);
            m_notes.Say(Attribute::Emissive, Outcome::Dropped, note);
        }
        if (Strongest(colour) <= 0.0F && !m_material.Textures.primary.empty()) {
            m_notes.Say(Attribute::Color, Outcome::Approximated,
                        QT_TRANSLATE_NOOP("Interchange", "many programs take black for white "
                                                         "where there is an image"));
        }
    }

    void WriteAmounts()
    {
        const auto& rayTrace = m_material.RayTrace;
        const bool shines = m_material.Specular > 0 || !m_material.Textures.specular.empty();
        Line("Ns", PlainNumber(ShininessOf(rayTrace.Roughness)));
        Line("d", PlainNumber(1.0F - FractionOf(m_material.Transparency)));
        Line("illum", shines ? "2" : "1");
        if (rayTrace.Metallic) {
            Line("Pm", "1");
        }
        if (rayTrace.Reflection > 0.0F) {
            Line("Pc", PlainNumber(CutToUnit(rayTrace.Reflection / 10.0F)));
        }
    }

    /// A name that the format cannot hold is left out, and said so.
    void Image(Attribute property, const std::string& keyword, const std::string& file,
               const std::string& options)
    {
        if (file.empty()) {
            return;
        }
        const std::string reference = ReferenceTo(file, m_folder);
        const bool holds = reference.find_first_of("\n\r\f\v") == std::string::npos &&
                           reference.find_first_of(" \t") != 0 && reference.back() != ' ' &&
                           reference.back() != '\t' && reference.back() != '\\';
        if (!holds) {
            m_notes.Say(property, Outcome::Dropped,
                        QT_TRANSLATE_NOOP("Interchange", "the format cannot hold its file's name"));
            return;
        }
        m_lines.push_back({keyword, options, (reference.front() == '-' ? "./" : "") + reference});
    }

    void WriteImages()
    {
        const auto& textures = m_material.Textures;
        Image(Attribute::Texture, "map_Kd", textures.primary, m_options);
        if (m_material.Ambient > 0) {
            Image(Attribute::Texture, "map_Ka", textures.primary, m_options);
        }
        if (m_material.Emissive > 0) {
            Image(Attribute::Texture, "map_Ke", textures.primary, m_options);
        }
        Image(Attribute::TextureOverlay, "decal", textures.overlay, m_options);
        Image(Attribute::TextureEnvironmentMap, "refl", textures.environment, "-type sphere ");
    }

    [[nodiscard]] bool AlphaIs(AlphaUse use)
    {
        return m_material.TextureAlphaChannelUse == use && !m_material.AlphaIsTransparent &&
               m_alpha.In(m_material.Textures.primary);
    }

    void AlphaImage(const std::string& keyword)
    {
        Image(Attribute::TextureAlphaChannelUse, keyword, m_material.Textures.primary,
              m_options + "-imfchan m ");
        m_notes.Say(Attribute::TextureAlphaChannelUse, Outcome::Mapped, "");
    }

    void WriteAlpha()
    {
        const auto& textures = m_material.Textures;
        Image(Attribute::TextureAlpha, "map_d", textures.alpha, m_options);
        if (textures.alpha.empty() && AlphaIs(AlphaCovers)) {
            AlphaImage("map_d");
        }
        Image(Attribute::TextureSpecularMap, "map_Ks", textures.specular, m_options);
        if (textures.specular.empty() && AlphaIs(AlphaShines)) {
            AlphaImage("map_Ks");
        }
    }

    void WriteRelief()
    {
        const auto& textures = m_material.Textures;
        Image(Attribute::TextureBumpmap, "bump", textures.bump, m_options);
        if (textures.bump.empty() && AlphaIs(AlphaBumps)) {
            AlphaImage("bump");
        }
    }

    const udtMaterial& m_material;
    const std::string& m_folder;
    AlphaChannels& m_alpha;
    ExportNotes& m_notes;
    std::string m_options;
    std::vector<MtlLine> m_lines;
};

}  // namespace

const FormatTable& MtlTable()
{
    return kMtlTable;
}

std::vector<MtlLine> MtlLinesOf(const NamedMaterial& named, const std::string& folder,
                                AlphaChannels& alpha, ExportNotes& notes)
{
    return MtlStatements(named, folder, alpha, notes).Write();
}

std::string MtlBlock(const std::string& name, const std::vector<MtlLine>& lines,
                     const std::string& lineEnd)
{
    std::string text = lineEnd + "newmtl " + name + lineEnd;
    for (const MtlLine& line : lines) {
        text += line.keyword + " " + line.options + line.value + lineEnd;
    }
    return text;
}

QByteArray MtlOf(std::span<const NamedMaterial> materials, const std::string& folder,
                 Report& report)
{
    return MtlWornBy(Wearers::Samples, materials, folder, report);
}

QByteArray MtlWornBy(Wearers wearers, std::span<const NamedMaterial> materials,
                     const std::string& folder, Report& report)
{
    std::string text = "# Corvex Studio, " + std::to_string(materials.size()) + " materials\n";
    UniqueNames names;
    AlphaChannels alpha;
    for (const NamedMaterial& named : materials) {
        ExportNotes notes(named, kMtlTable, wearers);
        const std::string name = names.Take(ReadableName(named.name, "Material"));
        text += MtlBlock(name, MtlLinesOf(named, folder, alpha, notes), "\n");
        notes.AddTo(report);
    }
    return QByteArray::fromStdString(text);
}

}  // namespace studio
