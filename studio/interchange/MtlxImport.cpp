#include "studio/import/ShapeNames.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/MtlxGraph.h"
#include "studio/interchange/MtlxMaterials.h"
#include "studio/interchange/TextureReference.h"
#include "studio/render/MaterialModel.h"

#include <QCoreApplication>

#include <algorithm>
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

    [[nodiscard]] float AmountIn(const MtlxSignal& signal, float otherwise) const
    {
        return signal.isSet ? signal.factor.red : signal.image ? 1.0F : otherwise;
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
        const float rough = AmountIn(roughness, 0.2F);
        const bool wide = rough > PhysicalRoughnessOf(10.0F) && !SliderReaches(rough);
        const float left = wide ? HighlightLeftBy(rough) : 1.0F;
        m_material.Specular = PercentOf(CutToUnit(AmountIn(weight, 1.0F)) * left);
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

struct FoundSurface {
    const MtlxElement* material;
    const MtlxElement* shader;  ///< null when there is none
    std::string_view kind;
};

const MtlxElement* ChildOf(const MtlxElement& parent, std::string_view category)
{
    const auto found = std::ranges::find(parent.children, category, &MtlxElement::category);
    return found == parent.children.end() ? nullptr : &*found;
}

/// Up to 1.37 a material holds a reference to a kind of shader, since then it is a node that a
/// shader node is connected to.
FoundSurface SurfaceOf(const MtlxElement& material, MtlxGraph& graph)
{
    if (material.category == "material") {
        const MtlxElement* shader = ChildOf(material, "shaderref");
        return {&material, shader, shader == nullptr ? "" : shader->Attribute("node")};
    }
    const MtlxElement* input = material.Input("surfaceshader");
    const MtlxElement* shader = input == nullptr ? nullptr : graph.NodeOf(*input);
    return {&material, shader, shader == nullptr ? "" : std::string_view(shader->category)};
}

void CollectSurfaces(const MtlxElement& scope, MtlxGraph& graph, std::vector<FoundSurface>& found)
{
    for (const MtlxElement& child : scope.children) {
        if (child.category == "material" || child.category == "surfacematerial") {
            found.push_back(SurfaceOf(child, graph));
        } else if (child.category == "nodegraph") {
            CollectSurfaces(child, graph, found);
        }
    }
}

/// Of a document without materials: its shaders.
void CollectShaders(const MtlxElement& root, std::vector<FoundSurface>& found)
{
    for (const MtlxElement& child : root.children) {
        if (child.category == "standard_surface") {
            found.push_back({&child, &child, child.category});
        }
    }
}

std::string NameOfSurface(const MtlxElement& material, std::size_t number)
{
    const std::string_view shown = material.Attribute("uiname");
    return ReadableName(shown.empty() ? material.Name() : shown,
                        "Material " + std::to_string(number));
}

void NoteIncludes(const MtlxElement& root, Report& report)
{
    for (const MtlxElement& child : root.children) {
        if (child.category == "xi:include") {
            MaterialNotes(report, "")
                .Add("xi:include", Outcome::Dropped,
                     QT_TRANSLATE_NOOP("Interchange", "included documents are not read: %1"),
                     std::string(child.Attribute("href")));
        }
    }
}

}  // namespace

std::vector<NamedMaterial> MaterialsOfMtlx(const QByteArray& bytes, const std::string& path,
                                           Report& report)
{
    MtlxDocument document(bytes, path);
    MtlxGraph graph(document);
    std::vector<FoundSurface> surfaces;
    CollectSurfaces(document.Root(), graph, surfaces);
    if (surfaces.empty()) {
        CollectShaders(document.Root(), surfaces);
    }
    NoteIncludes(document.Root(), report);
    const std::string folder = FolderOfDocument(path);
    std::vector<NamedMaterial> materials;
    for (const FoundSurface& surface : surfaces) {
        const std::string name = NameOfSurface(*surface.material, materials.size() + 1);
        MaterialNotes notes(report, name);
        if (surface.kind != "standard_surface") {
            notes.Add("surfaceshader", Outcome::Dropped,
                      QT_TRANSLATE_NOOP("Interchange",
                                        "only a standard_surface can be read; this is: %1"),
                      std::string(surface.kind));
            continue;
        }
        materials.push_back({name, SurfaceTaking(*surface.shader, graph, folder, notes).Take()});
    }
    return materials;
}

}  // namespace studio
