#include "SceneCommands.h"

#include "CommandTable.h"
#include "Interchange.h"
#include "SceneCommandTable.h"
#include "Tr.h"

#include <QFileInfo>

namespace studio {
namespace {

bool WritesInPlace(const SceneJob& job)
{
    return job.out.isEmpty() ||
           (IsSceneDocument(job.file) && QFileInfo(job.out) == QFileInfo(job.file));
}

void TellMissingTextures(SceneContext& context, const SceneContent& content)
{
    for (const std::string& texture : TexturesNotFound(ShapesOf(content))) {
        context.Loss(Tr("There is no texture %1.").arg(QString::fromStdString(texture)));
    }
}

SceneReading ReadFor(SceneContext& context, SceneDocument::Use use)
{
    SceneReading reading = ReadScene(context.job.file, ScenePictures(), use);
    TellReading(reading, context.job.file, [&](const QString& text) { context.Loss(text); });
    return reading;
}

}  // namespace

void SceneContext::Loss(const QString& text)
{
    if (job.strict) {
        output.Problem(text);
    } else {
        CommandOutput::Remark(text);
    }
}

void SceneContext::LookForDamage(SceneDocument& document)
{
    for (const std::string& problem : document.StructureProblems()) {
        output.Problem(job.file + QStringLiteral(": ") + QString::fromStdString(problem));
    }
}

bool RunSceneJob(const SceneJob& job)
{
    return RunFrom<SceneContext>(kSceneCommands, job);
}

PictureFolders ScenePictures()
{
    return {DocumentPictureFolder(), DocumentPictureFolder()};
}

SceneReading ReadIn(SceneContext& context)
{
    SceneReading reading = ReadFor(context, SceneDocument::Use::Read);
    TellMissingTextures(context, reading.content);
    return reading;
}

SceneReading ReadToWrite(SceneContext& context)
{
    return ReadFor(context, WritesInPlace(context.job) ? SceneDocument::Use::Edit
                                                       : SceneDocument::Use::Read);
}

void WriteScene(SceneContext& context, SceneReading& scene)
{
    TellMissingTextures(context, scene.content);
    const bool isInPlace = WritesInPlace(context.job);
    if (isInPlace) {
        context.LookForDamage(*scene.document);
    }
    if (context.output.HasProblems()) {
        return;
    }
    if (isInPlace) {
        scene.document->Save(scene.content);
    } else {
        static_cast<void>(SceneDocument::Create(context.job.out.toStdString(), scene.content,
                                                DocumentPictureFolder(),
                                                scene.document ? &*scene.document : nullptr));
    }
}

}  // namespace studio
