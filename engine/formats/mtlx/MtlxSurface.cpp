#include "MtlxSurface.h"

#include "Amounts.h"
#include "MaterialModel.h"
#include "TextureReference.h"

#include <QCoreApplication>

#include <array>
#include <cmath>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr const char* kMtlxOneColour =
    QT_TRANSLATE_NOOP("Interchange", "a share of the material's one colour");
constexpr const char* kMtlxNoLayer =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");

/// Inputs that a material cannot take; no news while they have these values.
struct IgnoredInput {
    std::string_view name;
    float neutral;
};
constexpr std::array kIgnoredInputs{
    IgnoredInput{"diffuse_roughness", 0.0F},
    IgnoredInput{"specular_IOR", 1.5F},
    IgnoredInput{"specular_anisotropy", 0.0F},
    IgnoredInput{"transmission_depth", 0.0F},
    IgnoredInput{"transmission_scatter", 0.0F},
    IgnoredInput{"transmission_dispersion", 0.0F},
    IgnoredInput{"transmission_extra_roughness", 0.0F},
    IgnoredInput{"subsurface", 0.0F},
    IgnoredInput{"sheen", 0.0F},
    IgnoredInput{"coat_color", 1.0F},
    IgnoredInput{"coat_roughness", 0.1F},
    IgnoredInput{"coat_anisotropy", 0.0F},
    IgnoredInput{"coat_affect_color", 0.0F},
    IgnoredInput{"coat_affect_roughness", 0.0F},
    IgnoredInput{"thin_film_thickness", 0.0F},
};

/// Turns one shader into a material, input by input.
class SurfaceTaking {
public:
    SurfaceTaking(const MtlxElement& shader, MtlxGraph& graph, const std::string& folder,
                  MaterialNotes notes)
        : m_shader(shader), m_graph(graph), m_folder(folder), m_notes(std::move(notes))
    {
    }

    udtMaterial Take()
    {
        TakeColour();
        TakeHighlight();
        TakeMirror();
        TakeTransparency();
        TakeGlow();
        TakeRelief();
        NoteIgnored();
        return m_material;
    }

private:
    [[nodiscard]] bool Has(std::string_view name) const { return m_shader.Input(name) != nullptr; }

    [[nodiscard]] MtlxSignal SignalAt(std::string_view name)
    {
        const MtlxElement* input = m_shader.Input(name);
        return input == nullptr ? MtlxSignal() : m_graph.Follow(*input);
    }

    /// An image that has no layer here says nothing of the amount: most are dark.
    [[nodiscard]] static float AmountIn(const MtlxSignal& signal, float otherwise)
    {
        return signal.isSet && !signal.image ? signal.factor.red : otherwise;
    }

    /// Mapped, unless nodes on the way are passed over or the note says more.
    void NoteInput(const std::string& name, const MtlxSignal& signal, const char* approximation)
    {
        if (!Has(name)) {
            return;
        }
        if (!signal.passedOver.empty()) {
            std::string nodes;
            for (const std::string& node : signal.passedOver) {
                nodes += (nodes.empty() ? "" : ", ") + node;
            }
            m_notes.Add(name, Outcome::Approximated,
                        QT_TRANSLATE_NOOP("Interchange", "these nodes are passed over: %1"), nodes);
        } else if (*approximation != '\0') {
            m_notes.Approximated(name, approximation);
        } else {
            m_notes.Mapped(name);
        }
    }

    std::string TakeImage(const std::string& name, const MtlxImage& image)
    {
        const FoundTexture found = FindReferenced(image.file, m_folder);
        if (!found.exists) {
            m_notes.Approximated(name,
                                 QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        }
        if (!m_window) {
            m_window = image.window;
            if (!PlaceWindow(TopDown(image.window), m_material) || image.turned) {
                m_notes.Approximated(name, QT_TRANSLATE_NOOP("Interchange",
                                                             "images repeat alike both ways, in "
                                                             "whole tiles, unturned"));
            }
        } else if (*m_window != image.window) {
            m_notes.Approximated(
                name, QT_TRANSLATE_NOOP("Interchange",
                                        "placed like the material's first image: there is one "
                                        "placement for all"));
        }
        return found.path;
    }

    void TakeColour()
    {
        constexpr Rgb kDefaultBase{0.8F, 0.8F, 0.8F};
        const MtlxSignal weight = SignalAt("base");
        MtlxSignal colour = SignalAt("base_color");
        const bool hasImage = colour.image || colour.overlay;
        if (!colour.isSet && !hasImage) {
            colour.factor = kDefaultBase;
        }
        m_weight = AmountIn(weight, 1.0F);
        m_base = colour.factor * m_weight;
        m_material.Color = ColourOfLight(m_base);
        NoteInput("base", weight, weight.image ? kMtlxNoLayer : "");
        NoteInput("base_color", colour, "");
        if (colour.image) {
            m_baseFile = colour.image->file;
            m_material.Textures.primary = TakeImage("base_color", *colour.image);
        }
        if (colour.overlay) {
            m_material.Textures.overlay = TakeImage("base_color", *colour.overlay);
            m_material.OverlayTranslucency =
                std::round(100.0F * (1.0F - CutToUnit(colour.overlayShare)));
        }
    }

    void TakeHighlight()
    {
        const MtlxSignal weight = SignalAt("specular");
        const MtlxSignal roughness = SignalAt("specular_roughness");
        const float rough = roughness.image ? PhysicalRoughnessOf(m_material.RayTrace.Roughness)
                                            : AmountIn(roughness, 0.2F);
        const float shine = weight.isSet ? weight.factor.red : 1.0F;
        const bool wide = rough > PhysicalRoughnessOf(10.0F) && !SliderReaches(rough);
        const float left = wide ? HighlightLeftBy(rough) : 1.0F;
        m_material.Specular = PercentOf(CutToUnit(shine) * left);
        m_material.RayTrace.Roughness = SliderOfPhysicalRoughness(rough);
        NoteInput("specular", weight,
                  wide ? QT_TRANSLATE_NOOP("Interchange", "weaker, as the surface is rough") : "");
        NoteInput("specular_roughness", roughness,
                  roughness.image ? kMtlxNoLayer
                  : SliderReaches(rough)
                      ? ""
                      : QT_TRANSLATE_NOOP("Interchange", "the nearest raytrace roughness"));
        if (weight.image) {
            m_material.Textures.specular = TakeImage("specular", *weight.image);
        }
        const MtlxSignal tint = SignalAt("specular_color");
        if (tint.image || !IsGrey(tint.factor)) {
            m_notes.Dropped("specular_color",
                            QT_TRANSLATE_NOOP("Interchange", "highlights are white"));
        }
    }

    void TakeMirror()
    {
        const MtlxSignal metalness = SignalAt("metalness");
        const float metal = AmountIn(metalness, 0.0F);
        m_material.RayTrace.Metallic = metal >= 0.5F;
        const bool clear = (metal == 0.0F || metal == 1.0F) && !metalness.image;
        NoteInput("metalness", metalness,
                  clear ? ""
                        : QT_TRANSLATE_NOOP("Interchange", "a material is a metal or it is not"));
        const MtlxSignal coat = SignalAt("coat");
        const float coated = AmountIn(coat, 0.0F);
        m_material.RayTrace.Reflection = std::round(10.0F * CutToUnit(coated));
        NoteInput("coat", coat,
                  coated > 0.0F ? QT_TRANSLATE_NOOP("Interchange", "as a reflection") : "");
    }

    void TakeTransparency()
    {
        const MtlxSignal through = SignalAt("transmission");
        const MtlxSignal opacity = SignalAt("opacity");
        const Rgb cover = opacity.factor;
        const float covered = CutToUnit((cover.red + cover.green + cover.blue) / 3.0F);
        const float passing = CutToUnit(AmountIn(through, 0.0F));
        m_material.Transparency = PercentOf(1.0F - covered * (1.0F - passing));
        NoteInput("transmission", through, through.image ? kMtlxNoLayer : "");
        NoteInput("opacity", opacity,
                  covered < 1.0F
                      ? QT_TRANSLATE_NOOP("Interchange", "as transparency, which leaves highlights")
                      : "");
        if (opacity.image && opacity.image->file != m_baseFile) {
            m_material.Textures.alpha = TakeImage("opacity", *opacity.image);
        }
        TakeTint(passing);
    }

    /// Of what has no surface colour of its own, such as glass.
    void TakeTint(float passing)
    {
        const MtlxSignal tint = SignalAt("transmission_color");
        const bool isClear = passing > 0.0F && m_weight <= 0.0F;
        if (isClear) {
            m_base = tint.factor;
            m_material.Color = ColourOfLight(m_base);
        }
        if (Has("transmission_color") && (isClear || !IsGrey(tint.factor) || tint.image)) {
            m_notes.Add("transmission_color", isClear ? Outcome::Approximated : Outcome::Dropped,
                        isClear ? QT_TRANSLATE_NOOP("Interchange", "as the surface's colour")
                                : QT_TRANSLATE_NOOP("Interchange", "light is not coloured on its "
                                                                   "way through a material"));
        }
    }

    void TakeGlow()
    {
        const MtlxSignal weight = SignalAt("emission");
        const MtlxSignal colour = SignalAt("emission_color");
        const Rgb glow = colour.factor * AmountIn(weight, 0.0F);
        const Share share = ShareOf(glow, m_base);
        m_material.Emissive = PercentOf(EncodedFromLinear(share.share));
        if (share.exceeds) {
            m_material.Color = ColourOfLight(glow);
        }
        const bool own = share.exceeds || share.otherHue;
        NoteInput("emission", weight, weight.image ? kMtlxNoLayer : own ? kMtlxOneColour : "");
        if (share.share > 0.0F) {
            const bool otherImage = colour.image && colour.image->file != m_baseFile;
            NoteInput("emission_color", colour,
                      otherImage ? kMtlxNoLayer
                      : own      ? kMtlxOneColour
                                 : "");
        }
    }

    void TakeRelief()
    {
        const MtlxSignal normal = SignalAt("normal");
        if (normal.image && normal.heights) {
            m_material.Textures.bump = TakeImage("normal", *normal.image);
            NoteInput("normal", normal, "");
        } else if (normal.image) {
            m_notes.Dropped(
                "normal", QT_TRANSLATE_NOOP("Interchange",
                                            "it holds directions; a bump map here holds heights"));
        } else if (Has("normal") && !normal.passedOver.empty()) {
            m_notes.Dropped("normal", kMtlxNoLayer);
        }
    }

    void NoteIgnored()
    {
        for (const IgnoredInput& ignored : kIgnoredInputs) {
            const MtlxSignal signal = SignalAt(ignored.name);
            const bool neutral =
                !signal.image && signal.passedOver.empty() &&
                (!signal.isSet || (signal.factor.red == ignored.neutral && IsGrey(signal.factor)));
            if (Has(ignored.name) && !neutral) {
                m_notes.Dropped(
                    std::string(ignored.name),
                    QT_TRANSLATE_NOOP("Interchange", "there is no such amount in a material"));
            }
        }
    }

    const MtlxElement& m_shader;
    MtlxGraph& m_graph;
    const std::string& m_folder;
    MaterialNotes m_notes;
    udtMaterial m_material;
    float m_weight = 1.0F;
    Rgb m_base;  ///< light
    std::string m_baseFile;
    std::optional<ImageWindow> m_window;  ///< of the first image
};

}  // namespace

udtMaterial MaterialOfSurface(const MtlxElement& shader, MtlxGraph& graph,
                              const std::string& folder, MaterialNotes notes)
{
    return SurfaceTaking(shader, graph, folder, std::move(notes)).Take();
}

}  // namespace studio
