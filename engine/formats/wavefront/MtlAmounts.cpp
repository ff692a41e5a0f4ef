#include "MtlTerms.h"

#include <QCoreApplication>

#include <cmath>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

class MtlAmountTaking {
public:
    MtlAmountTaking(const MtlMaterial& source, MaterialNotes& notes, udtMaterial& material)
        : m_source(source), m_notes(notes), m_material(material)
    {
    }

    void Take()
    {
        TakeColour();
        TakeShares();
        TakeHighlight();
        TakeTransparency();
        TakePhysicalTerms();
    }

private:
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

    static constexpr const char* kWhiteHighlight =
        QT_TRANSLATE_NOOP("Interchange", "highlights are white");
    static constexpr const char* kOnOff =
        QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not");

    const MtlMaterial& m_source;
    MaterialNotes& m_notes;
    udtMaterial& m_material;
    Rgb m_base;
};

}  // namespace

void TakeMtlAmounts(const MtlMaterial& source, MaterialNotes& notes, udtMaterial& material)
{
    MtlAmountTaking(source, notes, material).Take();
}

}  // namespace studio
