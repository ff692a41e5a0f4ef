#include "PreviewScene.h"

#include "PreviewPanel.h"
#include <CorvexMaterial/PreviewPrimitives.h>
#include <CorvexMaterial/Status.h>

namespace CorvexMaterial {

namespace {

constexpr float kNudge = 0.0001F;
constexpr std::int32_t kNudgeMode = 2;

}  // namespace

PreviewScene::PreviewScene(PreviewPanel& panel) : m_panel(panel) {}

void PreviewScene::SetSceneGraph(CorvexSG::SceneGraph& graph)
{
    m_graph = &graph;
}

void PreviewScene::LoadMeshes(const std::string& libraryFolder)
{
    if (m_graph == nullptr) {
        throw Error(Status::InvalidArgument, "the preview needs the scene graph first");
    }
    if (!m_shapes.WereRequested()) {
        m_shapes.LoadPreviewPrimitives(*m_graph, libraryFolder);
    }
}

void PreviewScene::ShowPrimitive(std::int32_t code)
{
    const auto& shape = m_shapes.GetPreviewPrimitiveShape(code);
    if (shape == m_shown) {
        return;
    }
    // A primitive whose mesh was not read shows as an empty scene, not as the one before it.
    constexpr std::int32_t kEmptyShape = -1;
    Scene().ShowShape(shape ? shape : m_shapes.GetPreviewPrimitiveShape(kEmptyShape));
    m_shown = shape;
    m_state = DrawingState::ScenePresent;
}

std::shared_ptr<CorvexSG::Shape> PreviewScene::NewShape(const std::string& libraryFolder,
                                                        std::int32_t primitive)
{
    const PreviewPrimitive* row = FindPreviewPrimitive(primitive);
    return m_graph == nullptr || row == nullptr
               ? nullptr
               : LoadPreviewPrimitive(*m_graph, libraryFolder, *row);
}

CorvexSG::Scene& PreviewScene::Scene()
{
    return m_panel.Viewport().Scene();
}

void PreviewScene::Redraw()
{
    m_panel.Viewport().Prepare();
    Draw();
}

void PreviewScene::RedrawNudged()
{
    m_panel.Viewport().Prepare();
    if (m_state == DrawingState::DrawnIdle && m_shown) {
        m_shown->Move(kNudge, kNudgeMode);
        m_shown->Move(-kNudge, kNudgeMode);
    }
    Draw();
}

void PreviewScene::Draw()
{
    m_state = DrawingState::Drawing;
    m_panel.Viewport().Draw();
    m_state = DrawingState::DrawnIdle;
}

void PreviewScene::ResetDevice()
{
    m_panel.Viewport().ResetDevice();
}

}  // namespace CorvexMaterial
