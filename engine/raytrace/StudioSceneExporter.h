#pragma once

#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "TemporaryFolder.h"
#include <CorvexMaterial/CorvexSG.h>

#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace studio {

class StudioScene;
struct SceneWriter;

/// Where the exporters get what is not in the scene itself.
struct RaytraceSources {
    RaytraceImages::Lookup textures;       ///< waits for the pixels of a file
    std::function<void(Frame&)> complete;  ///< fills in textures that are no files; may be empty
    std::function<std::vector<std::string>()> customFieldNames;  ///< may be empty
};

/// Writes the scenes of the control's jobs, as their viewport saw them last.
class StudioSceneExporter : public CorvexSG::SceneExporter {
public:
    explicit StudioSceneExporter(RaytraceSources sources) : m_sources(std::move(sources)) {}

    /// Errors: InvalidArgument for another scene graph's scene and another kind of file,
    /// FileFailed.
    std::string ExportRaytraceScene(const CorvexSG::RaytraceExport& request) override;
    /// Each file once; none that a raytrace material replaces.
    std::vector<std::string> TexturesInUse(CorvexSG::Scene& scene) override;
    void RaytraceEnded() override;

private:
    RaytraceSources m_sources;
    /// The images that the raytracer at work could not read.
    std::optional<CorvexMaterial::TemporaryFolder> m_images;
};

/// The scene from its own view, or framed when no viewport has shown it.
[[nodiscard]] RaytraceScene RaytraceSceneOf(StudioScene& scene, const RaytraceSources& sources);

/// The material of the scene's first shape on a square that fills the picture, without its images.
[[nodiscard]] RaytraceScene FlatSampleOf(const RaytraceScene& scene);

/// Writes the scene for the raytracer that the path's ending names, whole or not at all, to last as
/// long as the images in their place. Errors: InvalidArgument for another ending, FileFailed;
/// Failed, when a stop is asked for in time.
void WriteRaytraceScene(const QString& path, const RaytraceScene& scene,
                        const RaytraceImages::Lookup& textures, const RaytraceImages::Place& place,
                        const std::stop_token& stop = {});

/// The same for a raytracer whatever the path ends in.
void WriteRaytraceScene(const QString& path, const RaytraceScene& scene,
                        const RaytraceImages::Lookup& textures, const RaytraceImages::Place& place,
                        const SceneWriter& writer, const std::stop_token& stop = {});

/// Images that have to be saved for a scene file go into a folder beside it.
[[nodiscard]] RaytraceImages::Place
ImagesBeside(const QString& sceneFile,
             CorvexMaterial::Lifetime lifetime = CorvexMaterial::Lifetime::Lasting);

}  // namespace studio
