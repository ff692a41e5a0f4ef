#include "PovRayNormal.h"

#include "Quoting.h"
#include <CorvexMaterial/Looks.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace studio {
namespace {

/// Of a normal pattern of areas, in its own units: an edge as thin as the default is hardly seen.
constexpr float kBlockEdge = 0.12F;

void WriteHeightMap(TextStream& out, std::string_view word, const RaytraceImage& heights)
{
    out << word << " { " << heights.kind << ' ' << PovRayString(heights.path)
        << " gamma 1.0 interpolate 2";
}

/// Where the mesh says where its images lie. POV-Ray takes their directions for level and upright.
void WriteBumps(TextStream& out, const SurfaceDraft& surface, const RaytraceImage& heights,
                float height)
{
    out << "#declare " << surface.name << "_normal = normal { " << surface.placement.Mapping();
    WriteHeightMap(out, "bump_map", heights);
    out << " bump_size " << height * static_cast<float>(heights.size.width()) << " }";
    WritePlacement(out, surface.placement);
}

/// The coordinates of a place in the space of a wrap, which goes from -1 to 1 in the shape's box.
class WrapPlace {
public:
    explicit WrapPlace(const QMatrix4x4& wrapFromMesh)
    {
        QMatrix4x4 mirror;
        mirror.scale(1.0F, 1.0F, -1.0F);
        for (int i = 0; i < 3; ++i) {
            const QVector4D row = (wrapFromMesh * mirror).row(i);
            m_texts.push_back('(' + NumberText(row.x()) + "*x+" + NumberText(row.y()) + "*y+" +
                              NumberText(row.z()) + "*z+" + NumberText(row.w()) + ')');
            m_perLength.push_back(row.toVector3D().length());
        }
    }

    /// The length of the vector whose parts are those along the given axes, each times a power of
    /// the axis' units in a length of the mesh.
    [[nodiscard]] std::string Length(std::initializer_list<std::size_t> axes, float power) const
    {
        std::string sum;
        for (const std::size_t i : axes) {
            sum += (sum.empty() ? "" : "+") + NumberText(std::pow(m_perLength[i], 2.0F * power)) +
                   '*' + m_texts[i] + '*' + m_texts[i];
        }
        return "sqrt(" + sum + ')';
    }
    /// How much of the mesh's space one of the wrap's has.
    [[nodiscard]] float Volume() const
    {
        return 1.0F / (m_perLength[0] * m_perLength[1] * m_perLength[2]);
    }

private:
    std::vector<std::string> m_texts;
    std::vector<float> m_perLength;
};

constexpr float kPi = 3.1415927F;

/// The area of one image in the mesh's units, on a surface around the middle or the axis there.
std::string ImageAreaText(const WrapTerms& wrap)
{
    const WrapPlace place(wrap.wrapFromMesh);
    const TilePlane& tile = wrap.tiles[0];
    const float part = place.Volume() /
                       std::abs(tile.across.x() * tile.down.y() - tile.across.y() * tile.down.x());
    return wrap.kind == CoordinateKind::Spherical
               ? NumberText(2.0F * kPi * kPi * part) + '*' + place.Length({0, 2}, 0.0F) + '*' +
                     place.Length({0, 1, 2}, 1.0F)
               : NumberText(4.0F * kPi * part) + '*' + place.Length({0, 2}, 1.0F);
}

/// Around a middle or an axis the heights are known everywhere in space, and their slope there is
/// that on the surface, however it lies.
void WriteWrappedHeights(TextStream& out, const SurfaceDraft& surface, const RaytraceImage& heights,
                         float height)
{
    const WrapTerms& wrap = surface.placement.wrap;
    const QVector3D box = surface.item.mesh->bounds.maximum - surface.item.mesh->bounds.minimum;
    const float longest = std::max({box.x(), box.y(), box.z(), 1.0e-6F});
    // A pattern counts from 0 to 1: lengths of images are parts of one that is surely longer.
    const float longestImage = 6.0F * longest;
    out << "#declare " << surface.name << "_heights = function { pigment { ";
    WriteHeightMap(out, "image_map", heights);
    out << " }";
    WritePlacement(out, surface.placement);
    // Slopes over less than this part of the shape would show the steps of the shades.
    constexpr float kShortest = 0.006F;
    const float texels =
        static_cast<float>(heights.size.width()) * std::max(std::abs(wrap.crop.z()), 1.0e-3F);
    // POV-Ray tilts a normal by 2/15 of a pattern's slope.
    out << " } }\n#declare " << surface.name << "_normal = normal { function { 0.5+("
        << surface.name << "_heights(x,y,z).red-0.5)*min(1,sqrt(" << ImageAreaText(wrap) << ")/"
        << longestImage << ") } " << 7.5F * height * longestImage << " no_bump_scale accuracy "
        << longest * std::max(1.0F / texels, kShortest);
}

void WriteNormalPattern(TextStream& out, const SurfaceDraft& surface,
                        const CorvexMaterial::PovRayPattern& pattern)
{
    const PatternAmounts amounts = NormalPatternOf(surface.material.RayTrace);
    out << pattern.text << ' ' << pattern.strength * amounts.depth << " no_bump_scale frequency "
        << pattern.frequency * amounts.frequency;
    if (pattern.blocks) {
        out << " accuracy " << kBlockEdge;
    }
    if (amounts.turbulence > 0.0F) {
        out << " turbulence " << amounts.turbulence;
    }
    WritePatternSpace(out, surface.item, pattern.scale * amounts.size, pattern.place);
}

}  // namespace

bool DeclareNormal(TextStream& out, const SurfaceDraft& surface, RaytraceImages& store)
{
    if (const auto* pattern =
            CorvexMaterial::FindNormalPattern(surface.material.RayTrace.NormalPattern)) {
        out << "#declare " << surface.name << "_normal = normal { ";
        WriteNormalPattern(out, surface, *pattern);
    } else if (const SurfaceHeights heights = HeightsOf(surface.images); heights.shades) {
        const auto write = surface.placement.ByMesh() ? WriteBumps : WriteWrappedHeights;
        write(out, surface, store.ImageOf(*heights.shades), kBumpHeight * heights.white);
    } else {
        return false;
    }
    out << " }\n";
    return true;
}

}  // namespace studio
