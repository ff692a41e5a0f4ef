#pragma once

#include "PreviewShapes.h"

#include <cstdint>
#include <memory>
#include <string>

namespace CorvexMaterial {

class PreviewPanel;

/// What the preview shows: the shapes, which of them is in the viewport's scene, and its drawing.
class PreviewScene {
public:
    explicit PreviewScene(PreviewPanel& panel);

    void SetSceneGraph(CorvexSG::SceneGraph& graph);
    /// Loads the meshes, once per control. Errors: InvalidArgument before the scene graph is known,
    /// and what a mesh's own loading gives.
    void LoadMeshes(const std::string& libraryFolder);

    /// Whether loading was asked for; a scene without a single mesh is drawn too.
    [[nodiscard]] bool IsBuilt() const { return m_shapes.WereRequested(); }

    /// Puts the primitive into the viewport's scene when another one is shown.
    void ShowPrimitive(std::int32_t code);
    /// The shape that carries the preview material; null while it is not loaded.
    [[nodiscard]] const std::shared_ptr<CorvexSG::Shape>& Shape() const { return m_shown; }
    CorvexSG::Scene& Scene();
    /// One like the preview's, for another viewport. Null before the scene graph is known, and for
    /// a primitive without a mesh. Errors: what the loading gives.
    [[nodiscard]] std::shared_ptr<CorvexSG::Shape> NewShape(const std::string& libraryFolder,
                                                            std::int32_t primitive);

    void Redraw();
    /// Redraws; an idle preview's shape is nudged first, so that a host that draws only what has
    /// changed draws it.
    void RedrawNudged();
    void ResetDevice();

private:
    enum class DrawingState : std::uint8_t { Created, ScenePresent, Drawing, DrawnIdle };

    void Draw();

    PreviewPanel& m_panel;
    CorvexSG::SceneGraph* m_graph = nullptr;
    PreviewShapes m_shapes;
    std::shared_ptr<CorvexSG::Shape> m_shown;
    DrawingState m_state = DrawingState::Created;
};

}  // namespace CorvexMaterial
