#pragma once

#include "CallLog.h"
#include <CorvexMaterial/CorvexSG.h>

namespace CorvexTest {

/// What one call of a shape's material operation was given.
struct AppliedMaterial {
    std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;
    bool wrapped = false;
    CorvexSG::Scene* scene = nullptr;
    CorvexSG::Group* group = nullptr;
    CorvexSG::Group* camera = nullptr;
    CorvexSG::SelectionKind selectionKind = CorvexSG::SelectionKind::Shape;
    std::vector<std::int32_t> selection;
    bool optimizePoints = false;
    CorvexSG::CoordinateMode coordinateMode = CorvexSG::CoordinateMode::FromMesh;
    std::vector<float> coordinateModeData;
};

class RecordingShape : public Recording<CorvexSG::Shape> {
public:
    RecordingShape(CallLog& log, std::string name, const std::set<std::string>& missingMeshes)
        : Recording(log), m_name(std::move(name)), m_missingMeshes(missingMeshes)
    {
    }

    void ApplyMaterial(const CorvexSG::MaterialApplication& application) override;
    void ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application) override;
    void LoadMeshFile(const std::string& path) override;
    void SetShapeOption(std::int32_t option) override
    {
        m_log.Enter("Shape.SetShapeOption", std::to_string(option));
    }
    void Move(float distance, std::int32_t mode) override
    {
        m_log.Enter("Shape.Move", std::to_string(distance) + " mode " + std::to_string(mode));
    }

    [[nodiscard]] const std::string& Name() const { return m_name; }
    [[nodiscard]] const std::string& MeshFile() const { return m_meshFile; }
    [[nodiscard]] const std::vector<AppliedMaterial>& Applied() const { return m_applied; }
    /// The material that the shape shows now.
    [[nodiscard]] const CorvexDB::udtMaterial& Material() const;

private:
    void Keep(const CorvexSG::MaterialApplication& application, bool wrapped);

    std::string m_name;
    const std::set<std::string>& m_missingMeshes;
    std::string m_meshFile;
    std::vector<AppliedMaterial> m_applied;
};

class RecordingScene : public Recording<CorvexSG::Scene> {
public:
    using Recording::Recording;

    void ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape) override;
    CorvexSG::Group* RootGroup() override { return m_log.Answer("Scene.RootGroup", &m_root); }
    CorvexSG::Group* CameraGroup() override { return m_log.Answer("Scene.CameraGroup", &m_camera); }

    /// Null until one is shown.
    [[nodiscard]] RecordingShape* Shown() const
    {
        return dynamic_cast<RecordingShape*>(m_shown.get());
    }

private:
    std::shared_ptr<CorvexSG::Shape> m_shown;
    CorvexSG::Group m_root;
    CorvexSG::Group m_camera;
};

class RecordingSceneGraph : public Recording<CorvexSG::SceneGraph> {
public:
    using Recording::Recording;

    std::shared_ptr<CorvexSG::Shape> CreateShape() override;

    /// File names, without folder, whose loading fails.
    std::set<std::string> missingMeshes;
    std::vector<std::shared_ptr<RecordingShape>> shapes;
};

class RecordingExporter : public Recording<CorvexSG::SceneExporter> {
public:
    using Recording::Recording;

    std::string ExportRaytraceScene(const CorvexSG::RaytraceExport& request) override;
    std::vector<std::string> TexturesInUse(CorvexSG::Scene& /*scene*/) override
    {
        return m_log.Answer("SceneExporter.TexturesInUse", textures);
    }
    void RaytraceEnded() override { m_log.Enter("SceneExporter.RaytraceEnded"); }

    struct Request {
        float aspectRatio;
        float constant;
        CorvexSG::RaytraceView view;
        CorvexDB::cdtRayTraceMaterialAttributes attributes;  ///< of the shape that was shown
    };
    std::vector<Request> requests;
    std::vector<std::string> textures;
};

}  // namespace CorvexTest
