#include "StudioScene.h"

#include "Picking.h"
#include "Selection.h"
#include <CorvexMaterial/Status.h>

#include <algorithm>

namespace studio {

void StudioScene::ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape)
{
    if (shape == nullptr) {
        m_shapes.clear();
        return;
    }
    auto ours = std::dynamic_pointer_cast<StudioShape>(shape);
    if (ours == nullptr) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::InvalidArgument,
                                    "The shape belongs to another scene graph.");
    }
    m_shapes = {std::move(ours)};
}

void StudioScene::Fill(Frame& frame)
{
    frame.items.reserve(frame.items.size() + m_shapes.size());
    for (const auto& shape : m_shapes) {
        if (shape->Flags().hidden) {
            continue;
        }
        FrameItem item = shape->Item();
        item.selected = m_selection != nullptr && m_selection->Contains(*shape);
        item.target = shape == m_target;
        frame.items.push_back(std::move(item));
    }
}

std::optional<SurfacePoint> StudioScene::SurfaceAt(const Ray& ray) const
{
    const auto hit = PickNearest(ray, m_shapes, PickAmong::Seen);
    if (!hit) {
        return std::nullopt;
    }
    return SurfacePoint{ray.origin + static_cast<float>(hit->distance) * ray.direction,
                        hit->shape->IsPickable()};
}

void StudioScene::Add(std::shared_ptr<StudioShape> shape)
{
    if (shape != nullptr) {
        m_shapes.push_back(std::move(shape));
    }
}

StudioScene::Shapes StudioScene::Pickable() const
{
    Shapes pickable;
    std::ranges::copy_if(m_shapes, std::back_inserter(pickable),
                         [](const auto& shape) { return shape->IsPickable(); });
    return pickable;
}

Bounds StudioScene::Extent() const
{
    Bounds extent;
    for (const auto& shape : m_shapes) {
        extent.Include(WorldBounds(shape->Item()));
    }
    return extent;
}

Camera StudioScene::FramedBy(const Camera& camera)
{
    Frame frame;
    Fill(frame);
    return Framed(camera, frame.items);
}

std::shared_ptr<CorvexSG::Shape> StudioSceneGraph::CreateShape()
{
    return std::make_shared<StudioShape>();
}

StudioScene::Shapes CopiesOf(const StudioScene::Shapes& shapes)
{
    StudioScene::Shapes copies;
    copies.reserve(shapes.size());
    for (const auto& shape : shapes) {
        copies.push_back(std::make_shared<StudioShape>(*shape));
    }
    return copies;
}

}  // namespace studio
