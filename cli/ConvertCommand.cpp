#include "ConvertCommand.h"

#include "Formats.h"
#include "Interchange.h"
#include "SceneReading.h"
#include "TemporaryFolder.h"
#include "Tr.h"
#include "WritingOutput.h"

namespace studio {
namespace {

void ConvertNow(const ConvertJob& job, WritingOutput& output)
{
    const CorvexMaterial::TemporaryFolder passing("pictures");
    const Format* target = FormatOf(job.output.toStdString());
    const bool holdsPictures = target != nullptr && target->holdsPictures;
    const SceneReading scene =
        ReadScene(job.input, holdsPictures ? PictureFolders{passing.Path(), DocumentPictureFolder()}
                                           : PicturesBeside(job.output));
    const StudioScene::Shapes shapes = ShapesOf(scene.content);
    for (const std::string& texture : TexturesNotFound(shapes)) {
        const QString file = QString::fromStdString(texture);
        output.Unread(file, Tr("There is no texture %1.").arg(file));
    }
    Report report = scene.report;
    const ExportedScene written = ExportScene(job.output.toStdString(), shapes, report);
    for (const std::string& file : written.files) {
        output.Written(QString::fromStdString(file));
    }
    output.Outcomes(report, written.materials);
}

}  // namespace

ExitCode Convert(const ConvertJob& job)
{
    return RunWriting(job, ConvertNow);
}

}  // namespace studio
