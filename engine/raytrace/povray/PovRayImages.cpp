#include "PovRayImages.h"

#include "MaterialModel.h"
#include "PovRayMesh.h"
#include "Quoting.h"

#include <charconv>
#include <cmath>

namespace studio {
namespace {

constexpr float kThinnestCrop = 1.0e-4F;

/// From the shape's box to the axes in which POV-Ray counts longitudes: from +x over +z.
QMatrix4x4 PovRayWrapSpace(const WrapTerms& wrap)
{
    const QMatrix4x4 turn(0.0F, 0.0F, -1.0F, 0.0F,  //
                          0.0F, 1.0F, 0.0F, 0.0F,   //
                          -1.0F, 0.0F, 0.0F, 0.0F,  //
                          0.0F, 0.0F, 0.0F, 1.0F);
    QMatrix4x4 mirror;
    mirror.scale(1.0F, 1.0F, -1.0F);
    return (turn * wrap.wrapFromMesh * mirror).inverted();
}

float NotZero(float scale)
{
    return std::abs(scale) < kThinnestCrop ? kThinnestCrop : scale;
}

void WriteCrop(TextStream& out, const QVector4D& crop)
{
    if (crop == QVector4D(0.0F, 0.0F, 1.0F, 1.0F)) {
        return;  // an image repeats by itself
    }
    out << " translate <" << -crop.x() << ',' << crop.y() + crop.w() - 1.0F << ",0> scale <"
        << 1.0F / NotZero(crop.z()) << ',' << 1.0F / NotZero(crop.w())
        << ",1> warp { repeat x } warp { repeat y }";
}

void WriteFlips(TextStream& out, const QVector4D& flip)
{
    if (flip.x() < 0.0F) {
        out << " scale <-1,1,1> translate x";
    }
    if (flip.y() < 0.0F) {
        out << " scale <1,-1,1> translate y";
    }
}

/// Before a round wrap unrolls it; POV-Ray counts upwards.
void WriteTiles(TextStream& out, const TilePlane& tiles)
{
    if (tiles == TilePlane()) {
        return;
    }
    QMatrix4x4 upwards(1.0F, 0.0F, 0.0F, 0.0F,   //
                       0.0F, -1.0F, 0.0F, 1.0F,  //
                       0.0F, 0.0F, 1.0F, 0.0F,   //
                       0.0F, 0.0F, 0.0F, 1.0F);
    const QMatrix4x4 plane(tiles.across.x(), tiles.down.x(), 0.0F, tiles.offset.x(),  //
                           tiles.across.y(), tiles.down.y(), 0.0F, tiles.offset.y(),  //
                           0.0F, 0.0F, 1.0F, 0.0F,                                    //
                           0.0F, 0.0F, 0.0F, 1.0F);
    WriteMatrix(out, (upwards * plane * upwards).inverted());
}

}  // namespace

std::string_view PovRayPlacement::Mapping() const
{
    return ByMesh() ? "uv_mapping " : "";
}

bool PovRayPlacement::ByMesh() const
{
    return wrap.kind == CoordinateKind::Mesh || wrap.kind == CoordinateKind::Flat;
}

PovRayPlacement PlacementOf(const FrameItem& item, const CorvexDB::udtMaterial& material)
{
    return {WrapTermsOf(item, material)};
}

void WritePlacement(TextStream& out, const PovRayPlacement& placement)
{
    WriteCrop(out, placement.wrap.crop);
    WriteFlips(out, placement.wrap.flip);
    if (placement.wrap.kind != CoordinateKind::Flat) {
        WriteTiles(out, placement.wrap.tiles[0]);  // those of a flat wrap are in the mesh
    }
    if (placement.wrap.kind == CoordinateKind::Spherical) {
        out << " warp { spherical orientation z dist_exp 0 }";
    } else if (placement.wrap.kind == CoordinateKind::Cylindrical) {
        // A little taller than the shape, whose very top must not meet the image's lower edge.
        out << " scale <1,2.0002,1> translate -1.0001*y"
               " warp { cylindrical orientation z dist_exp 0 }";
    }
    if (!placement.ByMesh()) {
        WriteMatrix(out, PovRayWrapSpace(placement.wrap));
    }
}

void DeclareImage(TextStream& out, const std::string& surface, Layer layer,
                  const RaytraceImage& image, const PovRayPlacement& placement)
{
    const LayerRow& row = kLayerRows[static_cast<std::size_t>(layer)];
    out << "#declare " << surface << '_' << row.name << " = function { pigment { image_map { "
        << image.kind << ' ' << PovRayString(image.path)
        << (row.use == PixelUse::Colour ? " gamma srgb" : " gamma 1.0") << " interpolate 2 }";
    WritePlacement(out, placement);
    out << " } }\n";
}

std::string ChannelText(const std::string& surface, Layer layer, std::string_view channel)
{
    return surface + '_' + kLayerRows[static_cast<std::size_t>(layer)].name + "(x,y,z)." +
           std::string(channel);
}

std::string LuminanceText(const std::string& surface, Layer layer)
{
    return '(' + NumberText(kLuminance[0]) + '*' + ChannelText(surface, layer, "red") + '+' +
           NumberText(kLuminance[1]) + '*' + ChannelText(surface, layer, "green") + '+' +
           NumberText(kLuminance[2]) + '*' + ChannelText(surface, layer, "blue") + ')';
}

std::string NumberText(float number)
{
    std::array<char, 32> buffer{};
    const float finite = std::isfinite(number) ? number : 0.0F;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), finite);
    return {buffer.data(), end.ptr};
}

}  // namespace studio
