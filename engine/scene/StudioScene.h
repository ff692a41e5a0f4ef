#pragma once

#include "FrameSource.h"
#include "Mesh.h"
#include "StudioShape.h"
#include <CorvexMaterial/CorvexSG.h>

#include <QSize>

#include <memory>
#include <optional>
#include <vector>

namespace studio {

class Selection;

/// A node of the scene; the studio's scenes have one for their shapes and one for their camera.
class StudioGroup : public CorvexSG::Group {};

/// How a viewport looks at a scene.
struct SceneView {
    Camera camera;
    CorvexMaterial::Colour background = Frame().background;
    Backdrop backdrop = Backdrop::Gradient;
    QSize size = {};  ///< pixels; empty when nothing has shown the scene
};

/// Shapes in drawing order.
class StudioScene : public CorvexSG::Scene, public FrameSource {
public:
    using Shapes = std::vector<std::shared_ptr<StudioShape>>;

    /// Null leaves the scene empty. Errors: InvalidArgument for a shape of another scene graph.
    void ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape) override;
    CorvexSG::Group* RootGroup() override { return &m_root; }
    CorvexSG::Group* CameraGroup() override { return &m_camera; }

    void Fill(Frame& frame) override;
    [[nodiscard]] std::optional<SurfacePoint> SurfaceAt(const Ray& ray) const override;

    [[nodiscard]] const Shapes& All() const { return m_shapes; }
    void SetShapes(Shapes shapes) { m_shapes = std::move(shapes); }
    void Add(std::shared_ptr<StudioShape> shape);
    /// Those that are neither hidden nor locked.
    [[nodiscard]] Shapes Pickable() const;
    /// The box around all shapes, in world coordinates.
    [[nodiscard]] Bounds Extent() const;
    /// The camera moved so that the shapes just fill the picture.
    [[nodiscard]] Camera FramedBy(const Camera& camera);

    /// As a viewport last saw it; nothing as long as none has said so.
    [[nodiscard]] const std::optional<SceneView>& View() const { return m_view; }
    void SetView(const SceneView& view) { m_view = view; }

    /// Its shapes are drawn as selected. It outlives the scene or is replaced by null before.
    void MarkSelection(const Selection* selection) { m_selection = selection; }

    /// The shape glows, as what is dragged over it would be put there; null for none.
    void MarkTarget(std::shared_ptr<const StudioShape> shape) { m_target = std::move(shape); }

private:
    StudioGroup m_root;
    StudioGroup m_camera;
    Shapes m_shapes;
    std::optional<SceneView> m_view;
    const Selection* m_selection = nullptr;
    std::shared_ptr<const StudioShape> m_target;
};

class StudioSceneGraph : public CorvexSG::SceneGraph {
public:
    std::shared_ptr<CorvexSG::Shape> CreateShape() override;
};

/// As they are now, for another thread; meshes and materials are shared.
[[nodiscard]] StudioScene::Shapes CopiesOf(const StudioScene::Shapes& shapes);

}  // namespace studio
