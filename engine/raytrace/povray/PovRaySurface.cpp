#include "PovRaySurface.h"

#include "PovRayCoverage.h"
#include "PovRayFinish.h"
#include "PovRayNormal.h"
#include "PovRayPigment.h"
#include <CorvexMaterial/Looks.h>

namespace studio {
namespace {

/// Puts a surface together out of its pigment, normal and finish. What an image makes gradual in
/// its finish becomes a map between two textures.
class SurfaceWriter {
public:
    SurfaceWriter(TextStream& out, const SurfaceDraft& surface, RaytraceImages& store)
        : m_out(out), m_surface(surface), m_store(store)
    {
    }

    [[nodiscard]] std::string Declare(ShapeInside inside);

private:
    void DeclareImages();
    void DeclareLeaf(const std::string& name, FinishParts parts);
    void DeclareMix(const std::string& name, const std::string& amount, const std::string& none,
                    const std::string& full);
    [[nodiscard]] std::string DeclareShine(const std::string& name, MirrorSide mirror);
    [[nodiscard]] std::string DeclareMirror(const std::string& name, MirrorSide mirror);
    [[nodiscard]] std::string DeclareSide(const std::string& name, MirrorSide mirror);

    TextStream& m_out;
    const SurfaceDraft& m_surface;
    RaytraceImages& m_store;
    bool m_hasNormal = false;
};

void SurfaceWriter::DeclareImages()
{
    const LayerSet& set = m_surface.images.set;
    const auto declare = [this](Layer layer) {
        DeclareImage(m_out, m_surface.name, layer, m_surface.images.Image(layer),
                     m_surface.placement);
    };
    if (m_surface.Shows(Layer::Primary) || set.primaryAlpha != PrimaryAlpha::Nothing) {
        declare(Layer::Primary);
    }
    if (m_surface.Shows(Layer::Overlay)) {
        declare(Layer::Overlay);
    }
    for (const Layer layer : {Layer::Alpha, Layer::Specular}) {
        if (set.Has(layer)) {
            declare(layer);
        }
    }
}

void SurfaceWriter::DeclareLeaf(const std::string& name, FinishParts parts)
{
    m_out << "#declare " << name << " = texture { pigment { " << m_surface.name << "_pigment }";
    if (m_hasNormal) {
        m_out << " normal { " << m_surface.name << "_normal }";
    }
    m_out << "\n  ";
    WriteFinish(m_out, m_surface, parts);
    m_out << " }\n";
}

void SurfaceWriter::DeclareMix(const std::string& name, const std::string& amount,
                               const std::string& none, const std::string& full)
{
    m_out << "#declare " << name << " = texture { " << m_surface.placement.Mapping()
          << "function { min(1,max(0," << amount << ")) }\n  texture_map { [0 " << none << "] [1 "
          << full << "] } }\n";
}

std::string SurfaceWriter::DeclareShine(const std::string& name, MirrorSide mirror)
{
    const LayerSet& set = m_surface.images.set;
    DeclareLeaf(name + "_shiny", {true, mirror});
    // A mix doubles the rays at each turn, which inside is too much for what it shows.
    if (!set.ChangesHighlight() || mirror == MirrorSide::Inside) {
        return name + "_shiny";
    }
    DeclareLeaf(name + "_dull", {false, mirror});
    std::string amount =
        set.Has(Layer::Specular) ? LuminanceText(m_surface.name, Layer::Specular) : "1";
    if (set.primaryAlpha == PrimaryAlpha::Highlight) {
        amount += "*(1-" + ChannelText(m_surface.name, Layer::Primary, "transmit") + ')';
    }
    DeclareMix(name, amount, name + "_dull", name + "_shiny");
    return name;
}

std::string SurfaceWriter::DeclareMirror(const std::string& name, MirrorSide mirror)
{
    const LayerSet& set = m_surface.images.set;
    const std::string mirrored = DeclareShine(name + "_mirror", mirror);
    if (mirror == MirrorSide::None || !set.Has(Layer::Environment) ||
        set.primaryAlpha != PrimaryAlpha::Reflection) {
        return mirrored;
    }
    const std::string plain = DeclareShine(name + "_plain", MirrorSide::None);
    DeclareMix(name + "_masked", "1-" + ChannelText(m_surface.name, Layer::Primary, "transmit"),
               plain, mirrored);
    return name + "_masked";
}

std::string SurfaceWriter::DeclareSide(const std::string& name, MirrorSide mirror)
{
    const std::string texture = DeclareMirror(name, mirror);
    const std::string coverage = CoverageText(m_surface);
    if (coverage.empty()) {
        return texture;
    }
    DeclareMix(name + "_covered", coverage, "Clear", texture);
    return name + "_covered";
}

std::string SurfaceWriter::Declare(ShapeInside inside)
{
    DeclareImages();
    DeclarePigment(m_out, m_surface);
    m_hasNormal = DeclareNormal(m_out, m_surface, m_store);
    const std::string outside = DeclareSide(m_surface.name, MirrorSide::Outside);
    m_out << "#declare " << m_surface.name << " = material { texture { " << outside << " } }\n";
    if (inside == ShapeInside::Hidden || m_surface.mirror.front <= 0.0F) {
        return {};
    }
    return DeclareSide(m_surface.name + "_inside",
                       m_surface.material.DoubleSided ? MirrorSide::Inside : MirrorSide::None);
}

}  // namespace

std::string DeclareSurface(TextStream& out, const std::string& name, const FrameItem& item,
                           ShapeInside inside, RaytraceImages& images)
{
    if (const auto* look = CorvexMaterial::PredefinedLookOf(MaterialOf(item).RayTrace)) {
        out << "#declare " << name << " = material { " << look->povRay.text;
        WritePatternSpace(out, item, look->povRay.scale);
        out << " }\n";
        return {};
    }
    const SurfaceDraft surface(name, item, images);
    return SurfaceWriter(out, surface, images).Declare(inside);
}

}  // namespace studio
