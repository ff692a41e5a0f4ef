#include "SphereGrid.h"

namespace StudioRaytraceTest {
namespace {

constexpr float kSpacing = 2.3F;
constexpr float kHalfView = 3.0F;  ///< degrees: so far away that all are seen straight on

}  // namespace

int SphereGrid::Rows() const
{
    return (static_cast<int>(materials.size()) + columns - 1) / columns;
}

QRect SphereGrid::Cell(std::size_t i) const
{
    const int position = static_cast<int>(i);
    return {position % columns * cell, position / columns * cell, cell, cell};
}

studio::RaytraceScene SphereGrid::Scene() const
{
    studio::RaytraceScene scene;
    scene.frame.width = columns * cell;
    scene.frame.height = Rows() * cell;
    studio::Camera& camera = scene.frame.camera;
    camera.yawDegrees = yawDegrees;
    camera.pitchDegrees = pitchDegrees;
    camera.fovDegrees = 2.0F * kHalfView;
    camera.target = {};
    camera.distance = kSpacing * static_cast<float>(std::min(columns, Rows())) / 2.0F /
                      std::tan(kHalfView * 0.017453292F);
    const auto sphere = studio::SphereMesh(1.0F);
    for (std::size_t i = 0; i < materials.size(); ++i) {
        studio::FrameItem item;
        item.mesh = sphere;
        item.material = std::make_shared<CorvexDB::udtMaterial>(materials[i]);
        const QPointF offset =
            QRectF(Cell(i)).center() - QRectF(0, 0, scene.frame.width, scene.frame.height).center();
        const float unitsPerPixel = kSpacing / static_cast<float>(cell);
        item.worldFromMesh.translate(unitsPerPixel *
                                     (static_cast<float>(offset.x()) * camera.Right() -
                                      static_cast<float>(offset.y()) * camera.Up()));
        scene.frame.items.push_back(std::move(item));
    }
    return scene;
}

}  // namespace StudioRaytraceTest
