#include "PreviewShapes.h"

#include <CorvexMaterial/PreviewPrimitives.h>
#include <CorvexMaterial/Status.h>

namespace CorvexMaterial {

namespace {

// Asks the host for smooth shading; a preview mesh looks faceted without it.
constexpr std::int32_t kSmoothOption = 2;

std::shared_ptr<CorvexSG::Shape> NewShape(CorvexSG::SceneGraph& graph)
{
    auto shape = graph.CreateShape();
    if (!shape) {
        throw Error(Status::GraphicsFailed, "the scene graph makes no shape for the preview");
    }
    return shape;
}

}  // namespace

std::shared_ptr<CorvexSG::Shape> LoadPreviewPrimitive(CorvexSG::SceneGraph& graph,
                                                      const std::string& libraryFolder,
                                                      const PreviewPrimitive& primitive)
{
    auto shape = NewShape(graph);
    shape->LoadMeshFile(libraryFolder + "/" + std::string(kPreviewMeshFolder) + "/" +
                        std::string(primitive.meshFile));
    shape->SetShapeOption(kSmoothOption);
    return shape;
}

void PreviewShapes::LoadPreviewPrimitives(CorvexSG::SceneGraph& graph,
                                          const std::string& libraryFolder)
{
    m_requested = true;
    m_shapes.back() = NewShape(graph);
    for (std::size_t code = 0; code < kPreviewPrimitives.size(); ++code) {
        m_shapes[code] = LoadPreviewPrimitive(graph, libraryFolder, kPreviewPrimitives[code]);
    }
}

const std::shared_ptr<CorvexSG::Shape>&
PreviewShapes::GetPreviewPrimitiveShape(std::int32_t code) const
{
    const bool isMesh = FindPreviewPrimitive(code) != nullptr;
    return isMesh ? m_shapes[static_cast<std::size_t>(code)] : m_shapes.back();
}

}  // namespace CorvexMaterial
