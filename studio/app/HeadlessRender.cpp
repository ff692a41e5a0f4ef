#include "studio/app/HeadlessRender.h"

#include "platform/QtPlatform.h"
#include "preview/PreviewPrimitives.h"
#include "studio/app/MaterialAssignment.h"
#include "studio/import/ModelImport.h"
#include "studio/render/RenderService.h"
#include "studio/scene/DefaultScene.h"
#include "studio/scene/ModelShapes.h"

#include <QImageWriter>

namespace studio {
namespace {

StudioScene::Shapes ShapesOfModel(const QString& file)
{
    const ImportOutcome outcome = ImportModelNow(file);
    if (!outcome.model) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    outcome.message.toStdString());
    }
    return ShapesOf(*outcome.model);
}

StudioScene::Shapes PrimitiveShapes(int code)
{
    CorvexMaterial::QtPlatform desktop;
    const auto* primitive = CorvexMaterial::FindPreviewPrimitive(code);
    const std::string file = desktop.Get().library.Folder() + '/' +
                             std::string(CorvexMaterial::kPreviewMeshFolder) + '/' +
                             std::string(primitive->meshFile);
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

QImage Draw(const RenderJob& job)
{
    StudioScene scene;
    scene.SetShapes(job.model.isEmpty() ? PrimitiveShapes(job.primitive)
                                        : ShapesOfModel(job.model));
    for (const auto& shape : scene.All()) {
        Assign(*shape, job.assignments);
    }
    Frame frame;
    frame.camera = scene.FramedBy(DefaultCamera());
    frame.width = job.size.width();
    frame.height = job.size.height();
    frame.samples = 4;
    scene.Fill(frame);
    RenderService rendering;
    return rendering.DrawNow(std::move(frame));
}

}  // namespace

std::optional<QString> DrawPicture(const RenderJob& job)
{
    try {
        QImageWriter writer(job.output);
        return writer.write(Draw(job))
                   ? std::nullopt
                   : std::optional(QStringLiteral("%1: %2").arg(job.output, writer.errorString()));
    } catch (const CorvexMaterial::Error& error) {
        return QString::fromStdString(error.what());
    }
}

}  // namespace studio
