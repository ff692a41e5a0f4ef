#include "SceneWriters.h"

#include "PovRayScene.h"
#include "RaytracerTable.h"
#include "RibScene.h"
#include "SurfaceImages.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>

namespace studio {
namespace {

using CorvexMaterial::kRaytracerRows;

constexpr std::array kWriters{
    SceneWriter{&kRaytracerRows[0], kPovRayImages, WritePovRayScene},
    SceneWriter{&kRaytracerRows[1], kRibImages, WriteRibScene},
};

constexpr bool WritersFollowRaytracers()
{
    for (std::size_t i = 0; i < kWriters.size(); ++i) {
        if (kWriters[i].raytracer != &kRaytracerRows[i]) {
            return false;
        }
    }
    return kWriters.size() == kRaytracerRows.size();
}
static_assert(WritersFollowRaytracers());

bool HasAlpha(const std::string& file, const RaytraceImages::Lookup& textures)
{
    const TexturePointer texture = file.empty() || !textures ? nullptr : textures(file);
    return texture != nullptr && texture->hasAlpha;
}

}  // namespace

std::span<const SceneWriter> SceneWriters()
{
    return kWriters;
}

const SceneWriter& WriterOf(CorvexDB::Raytracer kind)
{
    const auto found = std::ranges::find_if(
        kWriters, [kind](const SceneWriter& writer) { return writer.raytracer->kind == kind; });
    return found != kWriters.end() ? *found : kWriters.front();
}

const SceneWriter* WriterFor(const QString& sceneFile)
{
    const std::string suffix = QFileInfo(sceneFile).suffix().toLower().toStdString();
    const auto found = std::ranges::find_if(kWriters, [&suffix](const SceneWriter& writer) {
        return writer.raytracer->scene.suffix == suffix;
    });
    return found != kWriters.end() ? &*found : nullptr;
}

QString LossNote(const CorvexMaterial::RaytracerRow& raytracer, const RaytraceScene& scene,
                 const RaytraceImages::Lookup& textures)
{
    const std::string environment = SharedEnvironment(scene);
    std::vector<CorvexMaterial::ShownMaterial> shown;
    for (const FrameItem& item : scene.frame.items) {
        const CorvexDB::udtMaterial& material = MaterialOf(item);
        shown.push_back({material, HasAlpha(material.Textures.primary, textures), environment});
    }
    QStringList losses;
    for (const CorvexMaterial::RaytraceOption option : raytracer.cannotShow) {
        const auto& row = CorvexMaterial::OptionRows()[static_cast<std::size_t>(option)];
        if (const auto shapes = std::ranges::count_if(shown, row.used); shapes > 0) {
            losses << QCoreApplication::translate("RaytraceExport", "%1 (shapes: %2)")
                          .arg(QString::fromUtf8(row.text))
                          .arg(shapes);
        }
    }
    return losses.isEmpty()
               ? QString()
               : QCoreApplication::translate("RaytraceExport", "%1 does not show: %2.")
                     .arg(QString::fromUtf8(raytracer.name), losses.join(QStringLiteral(", ")));
}

}  // namespace studio
