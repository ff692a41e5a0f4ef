#pragma once

#include "Camera.h"
#include "Mesh.h"
#include <CorvexMaterial/Colour.h>
#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/MaterialRecord.h>

#include <QMatrix4x4>

#include <memory>
#include <vector>

namespace studio {

struct Texture;
using TexturePointer = std::shared_ptr<const Texture>;

struct FrameItem {
    std::shared_ptr<const Mesh> mesh;                       ///< null is drawn as nothing
    std::shared_ptr<const CorvexDB::udtMaterial> material;  ///< null is the default material
    QMatrix4x4 worldFromMesh;
    bool selected = false;
    bool target = false;  ///< of what is dragged over it; glows
    CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh;
    CorvexDB::ApplyMode applyMode = CorvexDB::ApplyMode::Absolute;  ///< of the wrap
    TexturePointer generatedColor{};  ///< instead of the primary texture's file; may be null
    TexturePointer generatedBump{};   ///< instead of the bump map's file; may be null
};

/// A gradient runs quietly from a lighter tone of the background at the top to a darker one.
enum class Backdrop { Gradient, Flat };

/// Everything that a picture needs; a value, so that any thread may draw it.
struct Frame {
    std::vector<FrameItem> items;
    studio::Camera camera;
    CorvexMaterial::Colour background = 0x5A504A;
    Backdrop backdrop = Backdrop::Gradient;
    int width = 256;             ///< device pixels, 1 to 8192
    int height = 256;            ///< device pixels, 1 to 8192
    int samples = 1;             ///< 1, or 4 for smooth edges at about four times the cost
    float outlinePixels = 2.0F;  ///< width of the outline of selected items, device pixels
};

/// The same view direction, close enough that the items just fill the smaller side of a picture.
/// Looks at every vertex. Unchanged when there is nothing to see.
[[nodiscard]] Camera Framed(const Camera& camera, const std::vector<FrameItem>& items);

/// How far from the target the eye has to be for a raytracer, to which a parallel camera shows only
/// what is before it.
[[nodiscard]] float DistanceBeforeAll(const Frame& frame);

/// The box around all items, in world coordinates.
[[nodiscard]] Bounds WorldBounds(const std::vector<FrameItem>& items);
[[nodiscard]] Bounds WorldBounds(const FrameItem& item);

}  // namespace studio
