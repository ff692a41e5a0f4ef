#include "StudioSceneExporter.h"

#include "DefaultScene.h"
#include "Quoting.h"
#include "SceneWriters.h"
#include "StudioScene.h"
#include <CorvexMaterial/Looks.h>
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/SimulationTexture.h>
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <set>

namespace studio {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;

std::string Tr(const char* text, const QString& file, const QString& names)
{
    return QCoreApplication::translate("RaytraceExport", text).arg(file, names).toStdString();
}

StudioScene& OurScene(CorvexSG::Scene& scene)
{
    auto* ours = dynamic_cast<StudioScene*>(&scene);
    if (ours == nullptr) {
        throw Error(Status::InvalidArgument, "The scene belongs to another scene graph.");
    }
    return *ours;
}

const SceneWriter& ExpectedWriter(const QString& path)
{
    const SceneWriter* writer = WriterFor(path);
    if (writer == nullptr) {
        throw Error(Status::InvalidArgument,
                    Tr("%1: the name must end in %2.", path,
                       QString::fromStdString(CorvexMaterial::SceneNames({}, " or "))));
    }
    return *writer;
}

/// Texture coordinates 0 to 1 from its lower left.
std::shared_ptr<const Mesh> SquareMesh()
{
    std::vector<Vertex> vertices;
    for (const auto& [u, v] : {std::pair{0.0F, 0.0F}, {1.0F, 0.0F}, {1.0F, 1.0F}, {0.0F, 1.0F}}) {
        Vertex vertex;
        vertex.position = {2.0F * u - 1.0F, 2.0F * v - 1.0F, 0.0F};
        vertex.normal = {0.0F, 0.0F, 1.0F};
        vertex.uv = {u, v};
        vertices.push_back(vertex);
    }
    return MakeMesh(std::move(vertices), {0, 1, 2, 0, 2, 3});
}

/// The height stays that of the view, which is what the job asks for.
void Proportion(Frame& frame, float aspectRatio)
{
    const float ratio = std::isfinite(aspectRatio) && aspectRatio > 0.0F ? aspectRatio : 1.0F;
    const auto height = static_cast<float>(frame.height);
    frame.width = std::max(1, static_cast<int>(std::lround(height * ratio)));
}

void AddTextures(const CorvexDB::udtMaterial& material, std::set<std::string>& files)
{
    const auto& attributes = material.RayTrace;
    if (CorvexMaterial::IsPredefined(attributes)) {
        return;
    }
    const CorvexDB::TextureFiles& textures = material.Textures;
    if (attributes.ColorPattern == 0) {
        files.insert({textures.primary, textures.overlay});
    }
    files.insert({textures.alpha, textures.bump, textures.specular, textures.environment});
    files.erase(std::string());
}

}  // namespace

RaytraceScene RaytraceSceneOf(StudioScene& scene, const RaytraceSources& sources)
{
    RaytraceScene result;
    const SceneView view =
        scene.View() ? *scene.View() : SceneView{scene.FramedBy(DefaultCamera())};
    result.frame.camera = view.camera;
    result.frame.background = view.background;
    result.frame.backdrop = view.backdrop;
    if (!view.size.isEmpty()) {
        result.frame.width = view.size.width();
        result.frame.height = view.size.height();
    }
    scene.Fill(result.frame);
    if (sources.complete) {
        sources.complete(result.frame);
    }
    for (const auto& shape : scene.All()) {
        if (!shape->Flags().hidden) {
            result.names.push_back(shape->Name());
        }
    }
    if (sources.customFieldNames) {
        result.customFieldNames = sources.customFieldNames();
    }
    return result;
}

RaytraceScene FlatSampleOf(const RaytraceScene& scene)
{
    RaytraceScene sample;
    sample.flat = true;
    sample.frame.width = scene.frame.width;
    sample.frame.height = scene.frame.height;
    FrameItem square;
    square.mesh = SquareMesh();
    if (!scene.frame.items.empty() && scene.frame.items.front().material) {
        CorvexDB::udtMaterial material = *scene.frame.items.front().material;
        material.Textures = {};
        for (const CorvexMaterial::Attribute tint : CorvexMaterial::kTints) {
            const auto& path = CorvexMaterial::RowOf(tint).path;
            path.set(material, path.get(CorvexDB::udtMaterial()));
        }
        square.material = std::make_shared<CorvexDB::udtMaterial>(std::move(material));
    }
    sample.frame.items.push_back(std::move(square));
    return sample;
}

void WriteRaytraceScene(const QString& path, const RaytraceScene& scene,
                        const RaytraceImages::Lookup& textures, const RaytraceImages::Place& place,
                        const std::stop_token& stop)
{
    WriteRaytraceScene(path, scene, textures, place, ExpectedWriter(path), stop);
}

void WriteRaytraceScene(const QString& path, const RaytraceScene& given,
                        const RaytraceImages::Lookup& textures, const RaytraceImages::Place& place,
                        const SceneWriter& writer, const std::stop_token& stop)
{
    RaytraceScene scene = given;
    if (scene.picture.empty()) {
        scene.picture = QFileInfo(path).completeBaseName().toStdString() + '.' +
                        std::string(writer.raytracer->scene.pictureSuffix);
    }
    CorvexMaterial::FileWriter file(path.toStdString(), place.lifetime,
                                    CorvexMaterial::Existing::Replaced, stop);
    TextStream out([&](std::string_view text) { file.Write(text); });
    RaytraceImages images(writer.images, textures, place);
    writer.write(out, scene, images);
    file.Finish();
}

RaytraceImages::Place ImagesBeside(const QString& sceneFile, CorvexMaterial::Lifetime lifetime)
{
    const QFileInfo file(sceneFile);
    const QString base = file.completeBaseName();
    // By a bare name that the raytracer takes, so that both can be moved together.
    const QString plain =
        IsPlainPath(base.toStdString()) ? base : QStringLiteral("scene-%1").arg(qHash(base), 0, 16);
    const QString folder = plain + QStringLiteral("_textures");
    return {QDir(file.absolutePath()).filePath(folder), folder.toStdString() + '/', lifetime};
}

void StudioSceneExporter::RaytraceEnded()
{
    m_images.reset();
}

std::string StudioSceneExporter::ExportRaytraceScene(const CorvexSG::RaytraceExport& request)
{
    RaytraceScene scene = RaytraceSceneOf(OurScene(request.scene), m_sources);
    if (request.view == CorvexSG::RaytraceView::FlatSample) {
        scene = FlatSampleOf(scene);
    }
    Proportion(scene.frame, request.aspectRatio);
    const QString path = QString::fromStdString(request.path);
    // Where the job looks for it, whatever type it is.
    scene.picture = (QFileInfo(path).completeBaseName() + QStringLiteral(".bmp")).toStdString();
    // Not beside it: in a folder that others share they could be somebody else's.
    const std::string temporary = CorvexMaterial::SystemTemporaryFolder();
    m_images.emplace("images", IsPlainPath(temporary) ? temporary : "/tmp");
    WriteRaytraceScene(path, scene, m_sources.textures,
                       {QString::fromStdString(m_images->Path()), m_images->Path() + '/',
                        CorvexMaterial::Lifetime::Temporary});
    return request.path;
}

std::vector<std::string> StudioSceneExporter::TexturesInUse(CorvexSG::Scene& scene)
{
    std::set<std::string> files;
    for (const auto& shape : OurScene(scene).All()) {
        AddTextures(shape->Material(), files);
    }
    return {files.begin(), files.end()};
}

}  // namespace studio
