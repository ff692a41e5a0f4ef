#include "HeadlessRender.h"

#include "DefaultScene.h"
#include "MaterialAssignment.h"
#include "PictureFile.h"
#include "QtProcesses.h"
#include "RaytraceRun.h"
#include "RaytracerPrograms.h"
#include "RenderService.h"
#include "SceneReading.h"
#include "StudioSceneExporter.h"
#include "SurfaceImages.h"
#include "TemporaryFolder.h"
#include "TextureCache.h"
#include "Tr.h"
#include "WritingOutput.h"
#include <CorvexMaterial/PreviewPrimitives.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>

#include <set>

namespace studio {
namespace {

StudioScene::Shapes PrimitiveShapes(int code)
{
    const auto* primitive = CorvexMaterial::FindPreviewPrimitive(code);
    const std::string libraries =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + "/" CORVEX_LIBRARY_FOLDER)
            .toStdString();
    const std::string file = libraries + '/' + std::string(CorvexMaterial::kPreviewMeshFolder) +
                             '/' + std::string(primitive->meshFile);
    auto shape = std::make_shared<StudioShape>();
    shape->LoadMeshFile(file);
    return {std::move(shape)};
}

void Assign(StudioShape& shape, const QStringList& assignments)
{
    CorvexDB::udtMaterial material = shape.Material();
    for (const QString& assignment : assignments) {
        if (const auto wrong = AssignMaterial(material, assignment)) {
            throw CorvexMaterial::Error(CorvexMaterial::Status::InvalidArgument,
                                        wrong->toStdString());
        }
    }
    shape.SetApplied(WholeMaterial(std::move(material), shape.Applied().coordinates));
}

RaytraceImages::Lookup LookupIn(RenderService& rendering)
{
    return [&rendering](const std::string& file) { return rendering.Textures().Await(file); };
}

/// Pictures show a pattern in their place.
void TellUnreadTextures(const Frame& frame, RenderService& rendering, WritingOutput& output)
{
    std::set<std::string> seen;
    for (const FrameItem& item : frame.items) {
        for (const LayerRow& layer : kLayerRows) {
            const std::string& file = MaterialOf(item).Textures.*layer.file;
            if (!seen.insert(file).second) {
                continue;
            }
            const TexturePointer texture = rendering.Textures().Await(file);
            if (texture != nullptr && !texture->error.empty()) {
                const QString name = QString::fromStdString(file);
                output.Unread(name, Tr("The texture %1 cannot be read: %2")
                                        .arg(name, QString::fromStdString(texture->error)));
            }
        }
    }
}

void TellLosses(const SceneWriter& writer, const RaytraceScene& scene, RenderService& rendering,
                WritingOutput& output)
{
    if (const QString note = LossNote(*writer.raytracer, scene, LookupIn(rendering));
        !note.isEmpty()) {
        output.Loss(note);
    }
}

/// The job's shapes in view, with what a raytracer has to know of them.
RaytraceScene SceneOf(const RenderJob& job, StudioScene& scene, const PictureFolders& pictures,
                      WritingOutput& output)
{
    if (job.model.isEmpty()) {
        scene.SetShapes(PrimitiveShapes(job.primitive));
    } else {
        const SceneReading reading = ReadScene(job.model, pictures);
        output.Reading(reading, job.model);
        scene.SetShapes(ShapesOf(reading.content));
        if (reading.content.camera) {
            scene.SetView({.camera = *reading.content.camera});
        }
    }
    for (const auto& shape : scene.All()) {
        Assign(*shape, job.assignments);
    }
    RaytraceScene result = RaytraceSceneOf(scene, {});
    result.frame.width = job.size.width();
    result.frame.height = job.size.height();
    result.frame.samples = 4;
    return result;
}

QImage Raytraced(const SceneWriter& writer, const RaytraceScene& scene, RenderService& rendering,
                 WritingOutput& output)
{
    const CorvexMaterial::ProgramFacts& facts = writer.raytracer->program;
    const QString program = FindProgram(facts, PassedProgram(facts));
    if (program.isEmpty()) {
        throw CorvexMaterial::Error(
            CorvexMaterial::Status::FileFailed,
            (facts.usualName.empty()
                 ? Tr("No %1 is known: the variable %2 names its program.")
                       .arg(QString::fromUtf8(facts.noun), QString::fromUtf8(facts.variable))
                 : Tr("%1 was not found: there is no program named %2.")
                       .arg(QString::fromUtf8(writer.raytracer->name),
                            QString::fromUtf8(facts.usualName)))
                .toStdString());
    }
    TellLosses(writer, scene, rendering, output);
    CorvexMaterial::QtProcessStarter processes;
    RaytraceRun run(processes);
    QEventLoop loop;
    QImage picture;
    QString failure;
    QObject::connect(&run, &RaytraceRun::Finished, &loop, [&](const QImage& made) {
        picture = made;
        loop.quit();
    });
    QObject::connect(&run, &RaytraceRun::Failed, &loop, [&](const QString& message) {
        failure = message;
        loop.quit();
    });
    run.Start({program, &writer}, scene, LookupIn(rendering), 1);
    loop.exec();
    if (picture.isNull()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::Failed, failure.toStdString());
    }
    return picture;
}

QImage Draw(const RenderJob& job, WritingOutput& output)
{
    StudioScene scene;
    const CorvexMaterial::TemporaryFolder pictures("pictures");
    RaytraceScene all = SceneOf(job, scene, {pictures.Path(), DocumentPictureFolder()}, output);
    RenderService rendering;
    TellUnreadTextures(all.frame, rendering, output);
    return job.raytracer ? Raytraced(WriterOf(*job.raytracer), all, rendering, output)
                         : rendering.DrawNow(std::move(all.frame));
}

void DrawNow(const RenderJob& job, WritingOutput& output)
{
    // Before the picture is drawn, which may take long.
    CorvexMaterial::FileWriter target(job.output.toStdString());
    SavePicture(Draw(job, output), target, job.output, {PictureTypeOf(job.output)});
    output.Written(job.output);
}

void ExportNow(const RenderJob& job, WritingOutput& output)
{
    StudioScene scene;
    RenderService rendering;
    const RaytraceScene all = SceneOf(job, scene, PicturesBeside(job.output), output);
    TellUnreadTextures(all.frame, rendering, output);
    WriteRaytraceScene(job.output, all, LookupIn(rendering), ImagesBeside(job.output));
    TellLosses(*WriterFor(job.output), all, rendering, output);
    output.Written(job.output);
}

}  // namespace

ExitCode DrawPicture(const RenderJob& job)
{
    return RunWriting(job, DrawNow);
}

std::string DocumentPicture(const SceneContent& content)
{
    StudioScene scene;
    scene.SetShapes(ShapesOf(content));
    scene.SetView({.camera = content.camera.value_or(DefaultCamera()), .size = kDocumentPicture});
    Frame frame = RaytraceSceneOf(scene, {}).frame;
    frame.samples = 4;
    QByteArray png;
    QBuffer buffer(&png);
    try {
        RenderService rendering;
        rendering.DrawNow(std::move(frame)).save(&buffer, "PNG");
    } catch (const CorvexMaterial::Error&) {
        png.clear();
    }
    return png.toStdString();
}

ExitCode ExportPicture(const RenderJob& job)
{
    return RunWriting(job, ExportNow);
}

}  // namespace studio
