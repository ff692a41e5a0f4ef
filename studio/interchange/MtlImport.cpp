#include "studio/import/ShapeNames.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/MtlFile.h"
#include "studio/interchange/MtlMaterials.h"
#include "studio/interchange/TextureReference.h"

#include <QCoreApplication>

#include <cmath>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr std::int32_t kAlphaBumps = 2;
constexpr std::int32_t kAlphaShines = 3;

struct IgnoredTerm {
    const char* keyword;
    Outcome outcome;
    const char* note;
};

constexpr const char* kNoSuchImage =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");
constexpr const char* kNoSuchAmount =
    QT_TRANSLATE_NOOP("Interchange", "there is no such amount in a material");

/// What a material cannot take. Keywords in lower case, as the file's reader keeps them.
constexpr std::array kIgnoredMaps{
    IgnoredTerm{"map_ns", Outcome::Dropped, kNoSuchImage},
    IgnoredTerm{"map_pr", Outcome::Dropped, kNoSuchImage},
    IgnoredTerm{"map_pm", Outcome::Dropped, kNoSuchImage},
    IgnoredTerm{"map_ps", Outcome::Dropped, kNoSuchImage},
    IgnoredTerm{"map_tr", Outcome::Dropped, kNoSuchImage},
    IgnoredTerm{
        "norm", Outcome::Dropped,
        QT_TRANSLATE_NOOP("Interchange", "it holds directions; a bump map here holds heights")},
};
constexpr std::array kIgnoredNumbers{
    IgnoredTerm{"ni", Outcome::Dropped,
                QT_TRANSLATE_NOOP("Interchange", "nothing bends the light through a material")},
    IgnoredTerm{"ps", Outcome::Dropped, kNoSuchAmount},
    IgnoredTerm{"pcr", Outcome::Dropped, kNoSuchAmount},
    IgnoredTerm{"aniso", Outcome::Dropped, kNoSuchAmount},
    IgnoredTerm{"anisor", Outcome::Dropped, kNoSuchAmount},
    IgnoredTerm{"sharpness", Outcome::Dropped, kNoSuchAmount},
};

/// Turns one material of the file into one of ours, term by term.
class MtlTaking {
public:
    MtlTaking(const MtlMaterial& source, const std::string& name, const std::string& folder,
              Report& report)
        : m_source(source), m_notes(report, name), m_folder(folder)
    {
    }

    udtMaterial Take()
    {
        TakeColour();
        TakeShares();
        TakeHighlight();
        TakeTransparency();
        TakePhysicalTerms();
        TakeImages();
        TakeAlphaImage();
        TakeRelief();
        TakeEnvironment();
        NoteTheRest();
        return m_material;
    }

private:
    [[nodiscard]] bool Same(const MtlMap& map, const char* other) const
    {
        const MtlMap* match = m_source.Map(other);
        return match != nullptr && match->file == map.file;
    }

    std::string TakeFile(const char* keyword, const MtlMap& map)
    {
        const FoundTexture found = FindReferenced(map.file, m_folder);
        const char* placing = TakePlacement(map);
        if (!found.exists) {
            m_notes.Approximated(keyword,
                                 QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        } else {
            m_notes.Add(keyword, *placing == '\0' ? Outcome::Mapped : Outcome::Approximated,
                        placing);
        }
        NoteOptions(keyword, map);
        return found.path;
    }

    /// What differs, as a note; empty when nothing does.
    const char* TakePlacement(const MtlMap& map)
    {
        if (m_window) {
            return *m_window == map.window ? "" : kOnePlacement;
        }
        m_window = map.window;
        return PlaceWindow(TopDown(map.window), m_material) ? "" : kUneven;
    }

    void NoteOptions(const std::string& keyword, const MtlMap& map)
    {
        if (map.clamp) {
            m_notes.Dropped(keyword + " -clamp",
                            QT_TRANSLATE_NOOP("Interchange", "images always repeat"));
        }
        for (const std::string& option : map.ignored) {
            m_notes.Dropped(keyword + " " + option,
                            QT_TRANSLATE_NOOP("Interchange", "images are used as they are"));
        }
    }

    void TakeColour()
    {
        m_base = m_source.Colour("kd", kWhiteRgb);
        const bool hidesImage =
            Strongest(m_base) <= 0.0F && m_source.Map("map_kd") != nullptr && m_source.Has("kd");
        if (hidesImage) {
            m_base = kWhiteRgb;
            m_notes.Approximated(
                "Kd", QT_TRANSLATE_NOOP("Interchange", "black would hide the image: white"));
        } else if (m_source.Has("kd")) {
            m_notes.Mapped("Kd");
        }
        m_material.Color = ColourOfDisplayed(m_base);
    }

    void TakeShares()
    {
        if (m_source.Has("ka")) {
            const Share share = ShareOf(m_source.Colour("ka", kBlack), m_base);
            m_material.Ambient = PercentOf(share.share);
            NoteShare("Ka", share);
        }
        if (m_source.Number("illum", 1.0F) == 0.0F) {
            m_material.Emissive = 100;
            m_notes.Mapped("illum", QT_TRANSLATE_NOOP("Interchange", "unlit: emissive 100"));
            return;
        }
        const Rgb glow = m_source.Colour("ke", kBlack);
        const Share share = ShareOf(glow, m_base);
        m_material.Emissive = PercentOf(share.share);
        if (share.exceeds) {
            m_material.Color = ColourOfDisplayed(glow);
        }
        if (m_source.Has("ke")) {
            NoteShare("Ke", share);
        }
    }

    void NoteShare(const char* keyword, const Share& share)
    {
        if (share.exceeds || share.otherHue) {
            m_notes.Approximated(
                keyword, QT_TRANSLATE_NOOP("Interchange", "a share of the material's one colour"));
        } else {
            m_notes.Mapped(keyword);
        }
    }

    void TakeHighlight()
    {
        const Rgb colour = m_source.Colour("ks", kBlack);
        const bool unlitModel = m_source.Has("illum") && m_source.Number("illum", 2.0F) < 2.0F;
        const bool flat = m_source.Has("ns") && m_source.Number("ns", 1.0F) <= 0.0F;
        const bool none = unlitModel || flat;
        m_material.Specular = none ? 0 : PercentOf(Strongest(colour));
        if (m_source.Has("ks") && none && Strongest(colour) > 0.0F) {
            m_notes.Dropped(
                "Ks", QT_TRANSLATE_NOOP("Interchange", "illum or Ns says that nothing shines"));
        } else if (m_source.Has("ks")) {
            m_notes.Add("Ks", IsGrey(colour) ? Outcome::Mapped : Outcome::Approximated,
                        IsGrey(colour) ? "" : kWhiteHighlight);
        }
        if (m_source.Has("ns") && !flat) {
            TakeWidth(m_source.Number("ns", 1.0F));
        }
    }

    void TakeWidth(float shininess)
    {
        m_material.RayTrace.Roughness = SliderOfShininess(shininess);
        const float back = ShininessOf(m_material.RayTrace.Roughness);
        constexpr float kNear = 0.05F;
        const bool near = std::abs(back - shininess) < kNear * shininess;
        m_notes.Add("Ns", near ? Outcome::Mapped : Outcome::Approximated,
                    near ? "" : QT_TRANSLATE_NOOP("Interchange", "the nearest raytrace roughness"));
    }

    void TakeTransparency()
    {
        if (m_source.Has("d")) {
            m_material.Transparency = PercentOf(1.0F - m_source.Number("d", 1.0F));
            m_notes.Mapped("d");
        }
        if (m_source.Has("tr") && m_source.Has("d")) {
            m_notes.Dropped("Tr", QT_TRANSLATE_NOOP("Interchange", "d says it already"));
        } else if (m_source.Has("tr")) {
            m_material.Transparency = PercentOf(m_source.Number("tr", 0.0F));
            m_notes.Mapped("Tr");
        }
        if (m_source.Has("tf") && m_source.Colour("tf", kWhiteRgb) != kWhiteRgb) {
            m_notes.Dropped("Tf", QT_TRANSLATE_NOOP("Interchange", "light is not coloured on its "
                                                                   "way through a material"));
        }
    }

    /// Additions that some programs write for physically based renderers.
    void TakePhysicalTerms()
    {
        if (m_source.Has("pm")) {
            const float metallic = m_source.Number("pm", 0.0F);
            m_material.RayTrace.Metallic = metallic >= 0.5F;
            const bool clear = metallic == 0.0F || metallic == 1.0F;
            m_notes.Add("Pm", clear ? Outcome::Mapped : Outcome::Approximated, clear ? "" : kOnOff);
        }
        if (m_source.Has("pc")) {
            m_material.RayTrace.Reflection =
                std::round(10.0F * CutToUnit(m_source.Number("pc", 0.0F)));
            m_notes.Approximated("Pc", QT_TRANSLATE_NOOP("Interchange", "as a reflection"));
        }
        if (m_source.Has("pr") && !m_source.Has("ns")) {
            const float roughness = m_source.Number("pr", 0.0F);
            m_material.RayTrace.Roughness = SliderOfPhysicalRoughness(roughness);
            m_notes.Approximated(
                "Pr", QT_TRANSLATE_NOOP("Interchange", "the nearest raytrace roughness"));
        } else if (m_source.Has("pr")) {
            m_notes.Dropped("Pr", QT_TRANSLATE_NOOP("Interchange", "Ns says it already"));
        }
    }

    void TakeImages()
    {
        auto& textures = m_material.Textures;
        if (const MtlMap* map = m_source.Map("map_kd")) {
            textures.primary = TakeFile("map_Kd", *map);
        }
        if (const MtlMap* map = m_source.Map("decal")) {
            textures.overlay = TakeFile("decal", *map);
            m_material.OverlayTranslucency = 0.0F;
        }
        if (const MtlMap* map = m_source.Map("map_ks")) {
            if (map->channel == 'm' && Same(*map, "map_kd")) {
                m_material.TextureAlphaChannelUse = kAlphaShines;
                m_notes.Mapped("map_Ks");
            } else {
                textures.specular = TakeFile("map_Ks", *map);
            }
        }
        NoteFollowing("map_ka", "map_Ka");
        NoteFollowing("map_ke", "map_Ke");
    }

    /// What glows and what lies in shadow has the surface's image anyway.
    void NoteFollowing(const char* keyword, const char* written)
    {
        const MtlMap* map = m_source.Map(keyword);
        if (map == nullptr) {
            return;
        }
        if (Same(*map, "map_kd")) {
            m_notes.Mapped(written);
        } else {
            m_notes.Dropped(written, kNoSuchImage);
        }
    }

    void TakeAlphaImage()
    {
        const MtlMap* map = m_source.Map("map_d");
        if (map == nullptr) {
            return;
        }
        const bool ownAlpha = Same(*map, "map_kd");
        if (ownAlpha) {
            m_notes.Mapped("map_d");
        } else {
            m_material.Textures.alpha = TakeFile("map_d", *map);
        }
    }

    void TakeRelief()
    {
        const MtlMap* map = m_source.Map("bump");
        const MtlMap* displacement = m_source.Map("disp");
        if (map != nullptr && map->channel == 'm' && Same(*map, "map_kd")) {
            m_material.TextureAlphaChannelUse = kAlphaBumps;
            m_notes.Mapped("bump");
        } else if (map != nullptr) {
            m_material.Textures.bump = TakeFile("bump", *map);
            if (map->bumpMultiplier != 1.0F) {
                m_notes.Approximated(
                    "bump -bm", QT_TRANSLATE_NOOP("Interchange", "all bumps are of one height"));
            }
        } else if (displacement != nullptr) {
            m_material.Textures.bump = TakeFile("disp", *displacement);
            m_notes.Approximated("disp", QT_TRANSLATE_NOOP("Interchange", "as a bump map"));
        }
        if (map != nullptr && displacement != nullptr) {
            m_notes.Dropped("disp", kNoSuchImage);
        }
    }

    void TakeEnvironment()
    {
        if (const MtlMap* map = m_source.Map("refl")) {
            const FoundTexture found = FindReferenced(map->file, m_folder);
            m_material.Textures.environment = found.path;
            m_notes.Approximated(
                "refl", found.exists
                            ? QT_TRANSLATE_NOOP("Interchange", "taken for a picture of all around "
                                                               "(latitude and longitude)")
                            : QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        }
    }

    void NoteTheRest()
    {
        for (const IgnoredTerm& term : kIgnoredMaps) {
            if (m_source.Map(term.keyword) != nullptr) {
                m_notes.Add(term.keyword, term.outcome, term.note);
            }
        }
        for (const IgnoredTerm& term : kIgnoredNumbers) {
            if (m_source.Has(term.keyword) && !IsNeutral(term.keyword)) {
                m_notes.Add(term.keyword, term.outcome, term.note);
            }
        }
        if (m_source.Number("illum", 2.0F) > 2.0F) {
            m_notes.Approximated(
                "illum", QT_TRANSLATE_NOOP("Interchange", "as a plain surface with highlights"));
        }
        for (const std::string& keyword : m_source.notUnderstood) {
            m_notes.Dropped(keyword, QT_TRANSLATE_NOOP("Interchange", "not understood"));
        }
    }

    /// Written by most programs for every material; no news when it says "nothing special".
    [[nodiscard]] bool IsNeutral(const std::string& keyword) const
    {
        const float value = m_source.Number(keyword, 0.0F);
        return keyword == "ni" ? value == 1.0F || m_material.Transparency == 0 : value == 0.0F;
    }

    static constexpr const char* kUneven =
        QT_TRANSLATE_NOOP("Interchange", "images repeat alike both ways, in whole tiles");
    static constexpr const char* kOnePlacement = QT_TRANSLATE_NOOP(
        "Interchange", "placed like the material's first image: there is one placement for all");
    static constexpr const char* kWhiteHighlight =
        QT_TRANSLATE_NOOP("Interchange", "highlights are white");
    static constexpr const char* kOnOff =
        QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not");

    const MtlMaterial& m_source;
    MaterialNotes m_notes;
    const std::string& m_folder;
    udtMaterial m_material;
    Rgb m_base;
    std::optional<ImageWindow> m_window;  ///< of the first image
};

}  // namespace

std::vector<NamedMaterial> MaterialsOfMtl(const QByteArray& bytes, const std::string& folder,
                                          Report& report)
{
    const std::string text = TextOfDocument(bytes).toStdString();
    std::vector<NamedMaterial> materials;
    for (const MtlMaterial& source : ParseMtl(text)) {
        const std::string name =
            ReadableName(source.name, "Material " + std::to_string(materials.size() + 1));
        materials.push_back({name, MtlTaking(source, name, folder, report).Take()});
    }
    return materials;
}

}  // namespace studio
