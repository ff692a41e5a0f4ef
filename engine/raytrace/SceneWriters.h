#pragma once

#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "Raytracers.h"
#include "TextStream.h"

#include <span>

namespace studio {

/// How scenes are written for a raytracer: its folder here.
struct SceneWriter {
    const CorvexMaterial::RaytracerRow* raytracer;
    ImageReader images;
    /// Errors: FileFailed, for an image that cannot be saved.
    void (*write)(TextStream& out, const RaytraceScene& scene, RaytraceImages& images);
};

/// One for each raytracer, in their order.
[[nodiscard]] std::span<const SceneWriter> SceneWriters();
/// The first for a kind that there is none of.
[[nodiscard]] const SceneWriter& WriterOf(CorvexDB::Raytracer kind);
/// Null when the file's ending is that of none.
[[nodiscard]] const SceneWriter* WriterFor(const QString& sceneFile);

/// What the raytracer cannot show of a scene, each with the number of its shapes, for a person.
/// Empty when it shows everything.
[[nodiscard]] QString LossNote(const CorvexMaterial::RaytracerRow& raytracer,
                               const RaytraceScene& scene, const RaytraceImages::Lookup& textures);

}  // namespace studio
