#pragma once

// The host's scene graph: shapes, groups, scenes and their export for raytracers.

#include <CorvexMaterial/MaterialRecord.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace CorvexSG {

enum class SelectionKind : std::int32_t { Shape = 0, Faces = 1, Points = 2 };

/// What a selection consists of; the indices of its parts travel beside it.
struct udtSelectionType {
    SelectionKind kind = SelectionKind::Shape;
};

enum class CoordinateMode : std::int32_t { FromMesh = 0, FromWrap = 1 };

/// How texture coordinates are made; its numbers travel beside it.
struct cdtCoordinateMode {
    CoordinateMode mode = CoordinateMode::FromMesh;
};

class Scene;
class Group;

/// The material as the panel shows it. Gathered once per change and shared by every shape that it
/// is applied to, so a host may keep the pointer.
struct GatheredMaterial {
    CorvexDB::udtMaterial material;
    CorvexDB::ApplyMode applyMode = CorvexDB::ApplyMode::Absolute;
    std::string combinedRaytraceAttributes;
};

/// One call of a shape's material operation: the material and the arguments of
/// `ApplyShapeMaterial`.
struct MaterialApplication {
    std::shared_ptr<const GatheredMaterial> gathered;
    Scene& scene;
    Group* group;   ///< may be null
    Group* camera;  ///< may be null
    udtSelectionType selectionType;
    const std::vector<std::int32_t>& selection;  ///< indices of the selected parts
    bool optimizePoints;                         ///< merge duplicate points
    cdtCoordinateMode coordinateMode;
    const std::vector<float>& coordinateModeData;
};

class Shape {
public:
    virtual ~Shape() = default;
    /// Keeps the shape's texture coordinates.
    virtual void ApplyMaterial(const MaterialApplication& application) = 0;
    /// Makes new texture coordinates from the material's wrap.
    virtual void ApplyMaterialWrapped(const MaterialApplication& application) = 0;
    /// Reads a `.x` mesh. Errors: FileFailed; the shape stays as it was.
    virtual void LoadMeshFile(const std::string& path) = 0;
    /// 2: smooth shading. The control sets it on the preview meshes; other values are the host's.
    virtual void SetShapeOption(std::int32_t option) = 0;
    /// In scene units, along x, y or z for mode 0, 1 or 2.
    virtual void Move(float distance, std::int32_t mode) = 0;
};

class Group {
public:
    virtual ~Group() = default;
};

class Scene {
public:
    virtual ~Scene() = default;
    /// Shows this shape alone; the scene shares it. Null leaves the scene empty.
    virtual void ShowShape(const std::shared_ptr<Shape>& shape) = 0;
    /// Both may be null; they are handed back with each material operation.
    virtual Group* RootGroup() = 0;
    virtual Group* CameraGroup() = 0;
};

/// What `SetSceneDetails` hands over; outlives the control.
class SceneGraph {
public:
    virtual ~SceneGraph() = default;
    /// An empty shape, never null.
    virtual std::shared_ptr<Shape> CreateShape() = 0;
};

enum class RaytraceView : std::int32_t {
    /// The scene as its viewport shows it: camera, lights, background.
    Scene = 0,
    /// The material of the scene's shape alone, on the unit square of its texture coordinates,
    /// which fills the picture whatever its aspect, evenly lit: what a texture is made of. The
    /// shape's own textures are left out.
    FlatSample = 1,
};

/// The renderer writes its image beside the scene file, under the same name with the last three
/// letters replaced by "bmp". For POV-Ray its settings say so; a RIB names its image itself.
struct RaytraceExport {
    std::string path;  ///< ends in ".pov" or ".rib"
    Scene& scene;
    float aspectRatio;  ///< width / height
    float constant;     ///< always 0.1; kept for exporters that ask for it
    RaytraceView view = RaytraceView::Scene;
};

class SceneExporter {
public:
    virtual ~SceneExporter() = default;
    /// Writes the complete scene; returns the file that the renderer is to read. The renderer works
    /// in an empty folder of its own, so the scene names images by their whole paths; the picture,
    /// the scene file's name ending in "bmp", may go by its bare name. Errors: FileFailed.
    virtual std::string ExportRaytraceScene(const RaytraceExport& request) = 0;
    /// The renderer of the last scene has ended, or was never started: what was written beside the
    /// scene file can go. The scene file itself is removed by the control.
    virtual void RaytraceEnded() {}
    /// Files of every texture in use.
    virtual std::vector<std::string> TexturesInUse(Scene& scene) = 0;
};

}  // namespace CorvexSG
