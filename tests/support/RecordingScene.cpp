#include "RecordingScene.h"

#include <CorvexMaterial/Status.h>

namespace CorvexTest {
namespace {

std::string FileNameOf(const std::string& path)
{
    return path.substr(path.find_last_of("/\\") + 1);
}

std::string NameOf(const CorvexSG::Shape* shape)
{
    const auto* recording = dynamic_cast<const RecordingShape*>(shape);
    return recording == nullptr ? "none" : recording->Name();
}

}  // namespace

void RecordingShape::ApplyMaterial(const CorvexSG::MaterialApplication& application)
{
    m_log.Enter("Shape.ApplyMaterial", m_name);
    Keep(application, false);
}

void RecordingShape::ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application)
{
    m_log.Enter("Shape.ApplyMaterialWrapped", m_name);
    Keep(application, true);
}

void RecordingShape::Keep(const CorvexSG::MaterialApplication& application, bool wrapped)
{
    m_applied.push_back({application.gathered, wrapped, &application.scene, application.group,
                         application.camera, application.selectionType.kind, application.selection,
                         application.optimizePoints, application.coordinateMode.mode,
                         application.coordinateModeData});
}

void RecordingShape::LoadMeshFile(const std::string& path)
{
    m_log.Enter("Shape.LoadMeshFile", path);
    if (m_missingMeshes.contains(FileNameOf(path))) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "cannot read " + path);
    }
    m_meshFile = FileNameOf(path);
}

const CorvexDB::udtMaterial& RecordingShape::Material() const
{
    if (m_applied.empty()) {
        throw std::logic_error("no material was applied to " + m_name);
    }
    return m_applied.back().gathered->material;
}

void RecordingScene::ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape)
{
    m_log.Enter("Scene.ShowShape", NameOf(shape.get()));
    m_shown = shape;
}

std::shared_ptr<CorvexSG::Shape> RecordingSceneGraph::CreateShape()
{
    m_log.Enter("SceneGraph.CreateShape");
    shapes.push_back(std::make_shared<RecordingShape>(
        m_log, "shape " + std::to_string(shapes.size()), missingMeshes));
    return shapes.back();
}

std::string RecordingExporter::ExportRaytraceScene(const CorvexSG::RaytraceExport& request)
{
    m_log.Enter("SceneExporter.ExportRaytraceScene", request.path);
    const auto* scene = dynamic_cast<const RecordingScene*>(&request.scene);
    const RecordingShape* shape = scene == nullptr ? nullptr : scene->Shown();
    requests.push_back({request.aspectRatio, request.constant, request.view,
                        shape == nullptr ? CorvexDB::cdtRayTraceMaterialAttributes{}
                                         : shape->Material().RayTrace});
    return request.path;
}

}  // namespace CorvexTest
