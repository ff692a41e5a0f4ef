#include "studio/raytrace/PovRaySurface.h"

#include "studio/raytrace/PovRayCatalogue.h"
#include "studio/raytrace/PovRayImages.h"
#include "studio/raytrace/PovRayMesh.h"
#include "studio/raytrace/Quoting.h"
#include "studio/raytrace/RaytraceAmounts.h"
#include "studio/render/MaterialModel.h"

#include <algorithm>
#include <array>

namespace studio {
namespace {

/// Of a normal pattern of areas, in its own units: an edge as thin as the default is hardly seen.
constexpr float kBlockEdge = 0.12F;

const CorvexDB::udtMaterial& MaterialOf(const FrameItem& item)
{
    static const CorvexDB::udtMaterial kDefault;
    return item.material ? *item.material : kDefault;
}

std::array<float, 3> Channels(const LinearColour& colour)
{
    return {colour.red, colour.green, colour.blue};
}

/// One surface on its way into the scene file. Everything it declares begins with its name.
class SurfaceWriter {
public:
    SurfaceWriter(TextStream& out, const std::string& name, const FrameItem& item,
                  RaytraceImages& images)
        : m_out(out), m_name(name), m_item(item), m_material(MaterialOf(item)), m_store(images),
          m_images(SurfaceImagesOf(item, m_material, images)),
          m_placement(PlacementOf(item, m_material)),
          m_terms(m_images.set.ChangesHighlight() ? HighlightMappedTermsOf(m_material)
                                                  : SurfaceTermsOf(m_material)),
          m_amounts(AmountsOf(m_material.RayTrace)),
          m_colours(FindColourPattern(m_material.RayTrace.ColorPattern))
    {
    }

    void Declare();

private:
    /// Which of the things that images make gradual this texture has.
    struct Leaf {
        bool shines = true;
        bool mirrors = true;
    };

    void DeclareImages();
    void DeclarePigment();
    void WritePatternColours();
    void WriteImageColours();
    [[nodiscard]] std::string ColourText(std::string_view channel) const;
    void DeclareNormal();
    void WriteBumps(const RaytraceImage& heights);
    void DeclareLeaf(const std::string& name, Leaf leaf);
    void WriteFinish(Leaf leaf);
    void DeclareMix(const std::string& name, const std::string& amount, const std::string& none,
                    const std::string& full);
    [[nodiscard]] std::string DeclareShine(const std::string& name, bool mirrors);
    [[nodiscard]] std::string DeclareMirror();
    [[nodiscard]] std::string CoverageText() const;
    [[nodiscard]] std::string TestedText(const std::string& coverage) const;
    void WritePatternSpace(float scale, const QVector3D& place);
    [[nodiscard]] float MirrorAmount() const;

    TextStream& m_out;
    const std::string& m_name;
    const FrameItem& m_item;
    const CorvexDB::udtMaterial& m_material;
    RaytraceImages& m_store;
    SurfaceImages m_images;
    PovRayPlacement m_placement;
    SurfaceTerms m_terms;
    RaytraceAmounts m_amounts;
    const PovRayPattern* m_colours;
    bool m_hasNormal = false;
};

/// The space of the patterns: around the middle of the shape's box, half its longest side is 1.
void SurfaceWriter::WritePatternSpace(float scale, const QVector3D& place)
{
    const Bounds& box = m_item.mesh->bounds;
    const QVector3D size = box.maximum - box.minimum;
    const float half = std::max({size.x(), size.y(), size.z(), 1.0e-6F}) / 2.0F;
    m_out << " scale " << scale << " translate <" << place << "> scale " << half << " translate <"
          << PovRayPoint(box.Centre()) << '>';
}

void SurfaceWriter::DeclareImages()
{
    for (std::size_t i = 0; i < kLayerCount; ++i) {
        const auto layer = static_cast<Layer>(i);
        if (m_images.set.Has(layer) && layer != Layer::Environment && layer != Layer::Bump) {
            DeclareImage(m_out, m_name, layer, m_images.Image(layer), m_placement);
        }
    }
}

/// The primary texel under the overlay, one channel of it.
std::string SurfaceWriter::ColourText(std::string_view channel) const
{
    const std::string below = m_images.set.Has(Layer::Primary)
                                  ? ChannelText(m_name, Layer::Primary, channel)
                                  : std::string("1");
    if (!m_images.set.Has(Layer::Overlay)) {
        return below;
    }
    const std::string amount = NumberText(OverlayOpacityOf(m_material)) + "*(1-" +
                               ChannelText(m_name, Layer::Overlay, "transmit") + ')';
    return below + "+(" + ChannelText(m_name, Layer::Overlay, channel) + '-' + below + ")*" +
           amount;
}

/// POV-Ray has no product of an image and a colour: each channel is drawn by itself, and the three
/// are added up.
void SurfaceWriter::WriteImageColours()
{
    constexpr std::array<std::string_view, 3> kChannels{"red", "green", "blue"};
    const std::array<float, 3> base = Channels(m_terms.base);
    const float clear = 1.0F - m_terms.opacity;
    m_out << m_placement.Mapping() << "average pigment_map {\n";
    for (std::size_t i = 0; i < kChannels.size(); ++i) {
        std::array<float, 3> full{};
        full[i] = 3.0F * base[i];
        m_out << "    [1 function { min(1,max(0," << ColourText(kChannels[i])
              << ")) } color_map { [0 rgbt <0,0,0," << clear << ">] [1 rgbt <" << full[0] << ','
              << full[1] << ',' << full[2] << ',' << clear << ">] }]\n";
    }
    m_out << "  }";
}

void SurfaceWriter::WritePatternColours()
{
    const auto& attributes = m_material.RayTrace;
    const PatternAmounts amounts = ColourPatternOf(attributes);
    const std::array<float, 3> base = Channels(m_terms.base);
    const auto writeColour = [&](std::size_t i) {
        const CorvexDB::PatternColour& colour = attributes.ColorPatternColor[i];
        const auto part = [](float encoded) {
            return LinearFromEncoded(std::clamp(encoded, 0.0F, 1.0F));
        };
        m_out << "rgbt <" << base[0] * part(colour.red) << ',' << base[1] * part(colour.green)
              << ',' << base[2] * part(colour.blue) << ',' << 1.0F - m_terms.opacity << '>';
    };
    m_out << m_colours->text;
    if (m_colours->blocks) {
        m_out << ' ';
        writeColour(0);
        m_out << ' ';
        writeColour(1);
    } else {
        m_out << " color_map {";
        for (std::size_t i = 0; i < attributes.ColorPatternColor.size(); ++i) {
            m_out << " [" << static_cast<float>(i) / 3.0F << ' ';
            writeColour(i);
            m_out << ']';
        }
        m_out << " } frequency " << amounts.frequency;
        if (amounts.turbulence > 0.0F) {
            m_out << " turbulence " << amounts.turbulence;
        }
    }
    WritePatternSpace(m_colours->scale, m_colours->place);
}

void SurfaceWriter::DeclarePigment()
{
    m_out << "#declare " << m_name << "_pigment = pigment { ";
    if (m_colours != nullptr) {
        WritePatternColours();
    } else if (m_images.set.Has(Layer::Primary) || m_images.set.Has(Layer::Overlay)) {
        WriteImageColours();
    } else {
        const std::array<float, 3> base = Channels(m_terms.base);
        m_out << "rgbt <" << base[0] << ',' << base[1] << ',' << base[2] << ','
              << 1.0F - m_terms.opacity << '>';
    }
    m_out << " }\n";
}

/// POV-Ray measures heights in pixels of the image.
void SurfaceWriter::WriteBumps(const RaytraceImage& heights)
{
    const int pixels = std::max(heights.size.width(), heights.size.height());
    m_out << "  " << m_placement.Mapping() << "bump_map { " << heights.kind << ' '
          << PovRayString(heights.path) << " gamma 1.0 interpolate 2 bump_size "
          << kBumpHeight * static_cast<float>(pixels) << " }";
    WritePlacement(m_out, m_placement);
}

void SurfaceWriter::DeclareNormal()
{
    const PovRayPattern* pattern = FindNormalPattern(m_material.RayTrace.NormalPattern);
    const TexturePointer heights = HeightsOf(m_images);
    m_hasNormal = pattern != nullptr || heights != nullptr;
    if (!m_hasNormal) {
        return;
    }
    m_out << "#declare " << m_name << "_normal = normal { ";
    if (pattern != nullptr) {
        const PatternAmounts amounts = NormalPatternOf(m_material.RayTrace);
        m_out << pattern->text << ' ' << pattern->strength * amounts.depth
              << " no_bump_scale frequency " << pattern->frequency * amounts.frequency;
        if (pattern->blocks) {
            m_out << " accuracy " << kBlockEdge;
        }
        if (amounts.turbulence > 0.0F) {
            m_out << " turbulence " << amounts.turbulence;
        }
        WritePatternSpace(pattern->scale * amounts.size, pattern->place);
    } else {
        WriteBumps(m_store.ImageOf(*heights));
    }
    m_out << " }\n";
}

float SurfaceWriter::MirrorAmount() const
{
    return m_images.set.Has(Layer::Environment) ? std::max(kReflectionAtFront, m_amounts.reflection)
                                                : m_amounts.reflection;
}

void SurfaceWriter::WriteFinish(Leaf leaf)
{
    const float mirrored = leaf.mirrors ? MirrorAmount() : 0.0F;
    const float body = 1.0F - mirrored;
    const float diffuse =
        leaf.shines ? m_terms.diffuse : m_terms.diffuse / (1.0F - m_terms.highlightCost);
    const float highlight = leaf.shines ? m_terms.highlight : 0.0F;
    // Half of the light from the sky is the same everywhere; the lights of the scene are the rest.
    m_out << "finish { ambient 0 emission "
          << body * (m_terms.emission + diffuse * kSkyIntensity / 2.0F) << " diffuse "
          << body * diffuse << " brilliance " << m_amounts.brilliance;
    if (highlight > 0.0F) {
        m_out << " specular " << highlight / kKeyLight.intensity << " roughness "
              << 1.0F / m_amounts.shininess << (m_amounts.metallic ? " metallic" : "");
    }
    if (mirrored > 0.0F) {
        m_out << " reflection { " << mirrored;
        if (m_images.set.Has(Layer::Environment)) {
            m_out << ", 1 falloff " << kReflectionFalloff;
        }
        m_out << (m_amounts.metallic ? " metallic }" : " }");
    }
    if (m_amounts.iridescence > 0.0F) {
        m_out << " irid { " << m_amounts.iridescence << " thickness " << m_amounts.filmThickness
              << " turbulence " << m_amounts.filmTurbulence << " }";
    }
    m_out << " }";
}

void SurfaceWriter::DeclareLeaf(const std::string& name, Leaf leaf)
{
    m_out << "#declare " << name << " = texture { pigment { " << m_name << "_pigment }";
    if (m_hasNormal) {
        m_out << " normal { " << m_name << "_normal }";
    }
    m_out << "\n  ";
    WriteFinish(leaf);
    m_out << " }\n";
}

void SurfaceWriter::DeclareMix(const std::string& name, const std::string& amount,
                               const std::string& none, const std::string& full)
{
    m_out << "#declare " << name << " = texture { " << m_placement.Mapping()
          << "function { min(1,max(0," << amount << ")) }\n  texture_map { [0 " << none << "] [1 "
          << full << "] } }\n";
}

std::string SurfaceWriter::DeclareShine(const std::string& name, bool mirrors)
{
    DeclareLeaf(name + "_shiny", {true, mirrors});
    if (!m_images.set.ChangesHighlight()) {
        return name + "_shiny";
    }
    DeclareLeaf(name + "_dull", {false, mirrors});
    std::string amount = m_images.set.Has(Layer::Specular) ? LuminanceText(m_name, Layer::Specular)
                                                           : std::string("1");
    if (m_images.set.primaryAlpha == PrimaryAlpha::Highlight) {
        amount += "*(1-" + ChannelText(m_name, Layer::Primary, "transmit") + ')';
    }
    DeclareMix(name, amount, name + "_dull", name + "_shiny");
    return name;
}

std::string SurfaceWriter::DeclareMirror()
{
    const bool masked = m_images.set.Has(Layer::Environment) &&
                        m_images.set.primaryAlpha == PrimaryAlpha::Reflection;
    const std::string mirror = DeclareShine(m_name + "_mirror", true);
    if (!masked) {
        return mirror;
    }
    const std::string plain = DeclareShine(m_name + "_plain", false);
    DeclareMix(m_name + "_masked", "1-" + ChannelText(m_name, Layer::Primary, "transmit"), plain,
               mirror);
    return m_name + "_masked";
}

/// Empty when images take nothing away.
std::string SurfaceWriter::CoverageText() const
{
    if (!m_images.set.ChangesOpacity()) {
        return {};
    }
    std::string text = m_images.set.Has(Layer::Alpha) ? LuminanceText(m_name, Layer::Alpha) : "1";
    if (m_images.set.primaryAlpha == PrimaryAlpha::Opacity) {
        text += "*(1-" + ChannelText(m_name, Layer::Primary, "transmit") + ')';
    } else if (m_images.set.primaryAlpha == PrimaryAlpha::Transparency) {
        text += '*' + ChannelText(m_name, Layer::Primary, "transmit");
    }
    return text;
}

std::string SurfaceWriter::TestedText(const std::string& coverage) const
{
    const AlphaTest test = AlphaTestOf(m_material);
    if (test.comparison.empty()) {
        return coverage;
    }
    const std::string difference = "floor(" + NumberText(255.0F * m_terms.opacity) + "*(" +
                                   coverage + ")+0.5)-" + std::to_string(test.reference);
    // select(a, b, c, d): b, c or d as a is below, at or above 0.
    const std::string_view sign = test.comparison;
    const auto kept = [&](bool keep) { return keep ? ',' + coverage : std::string(",0"); };
    return "select(" + difference + kept(sign == "<" || sign == "<=" || sign == "!=") +
           kept(sign == "==" || sign == "<=" || sign == ">=") +
           kept(sign == ">" || sign == ">=" || sign == "!=") + ')';
}

void SurfaceWriter::Declare()
{
    const auto& attributes = m_material.RayTrace;
    if (attributes.MaterialType == 1) {
        if (const PovRayMaterial* stock =
                FindPredefined(attributes.PredefinedType, attributes.PreDefinedMaterial)) {
            m_out << "#declare " << m_name << " = material { " << stock->text;
            WritePatternSpace(stock->scale, {});
            m_out << " }\n";
            return;
        }
    }
    DeclareImages();
    DeclarePigment();
    DeclareNormal();
    std::string texture = DeclareMirror();
    if (const std::string coverage = CoverageText(); !coverage.empty()) {
        DeclareMix(m_name + "_covered", TestedText(coverage), "Clear", texture);
        texture = m_name + "_covered";
    }
    m_out << "#declare " << m_name << " = material { texture { " << texture << " } }\n";
}

}  // namespace

bool IsTestedAway(const FrameItem& item, RaytraceImages& images)
{
    const CorvexDB::udtMaterial& material = MaterialOf(item);
    const AlphaTest test = AlphaTestOf(material);
    if (test.comparison.empty() || IsSeenThrough(item, images)) {
        if (test.comparison.empty() ||
            SurfacePixelsOf(item, material, images).set.ChangesOpacity()) {
            return false;
        }
    }
    const int alpha = static_cast<int>(SurfaceTermsOf(material).opacity * 255.0F + 0.5F);
    const int difference = alpha - test.reference;
    const std::string_view sign = test.comparison;
    const bool kept = difference < 0    ? sign == "<" || sign == "<=" || sign == "!="
                      : difference == 0 ? sign == "==" || sign == "<=" || sign == ">="
                                        : sign == ">" || sign == ">=" || sign == "!=";
    return !kept;
}

bool IsSeenThrough(const FrameItem& item, RaytraceImages& images)
{
    const CorvexDB::udtMaterial& material = MaterialOf(item);
    return IsTransparent(material) || SurfacePixelsOf(item, material, images).set.ChangesOpacity();
}

void DeclareSurface(TextStream& out, const std::string& name, const FrameItem& item,
                    RaytraceImages& images)
{
    SurfaceWriter(out, name, item, images).Declare();
}

}  // namespace studio
