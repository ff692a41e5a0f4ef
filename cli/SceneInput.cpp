#include "SceneInput.h"

#include "DocumentSchema.h"
#include "ModelImport.h"
#include "ModelShapes.h"
#include "SceneDocument.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>

#include <set>

namespace studio {
namespace {

SceneInput ReadDocument(const QString& file, const QString& pictureFolder)
{
    const QString pictures = pictureFolder + QStringLiteral("/Textures");
    SceneDocument::Opened opened = SceneDocument::Open(file.toStdString(), pictures.toStdString());
    SceneInput input;
    std::set<const void*> materials;
    for (ShapeState& state : opened.content.shapes) {
        materials.insert(state.applied.gathered.get());
        input.shapes.push_back(std::make_shared<StudioShape>(std::move(state)));
    }
    input.materials = materials.size();
    const std::string name = QFileInfo(file).fileName().toStdString();
    for (const std::string& problem : opened.problems) {
        input.report.Add({name, "document", Outcome::Dropped, problem});
    }
    return input;
}

}  // namespace

SceneInput ReadScene(const QString& file, const QString& pictureFolder)
{
    if (QFileInfo(file).suffix().toLower() == QLatin1String(kDocumentSuffix)) {
        return ReadDocument(file, pictureFolder);
    }
    ImportProgram importer;
    importer.pictureFolder = pictureFolder.toStdString();
    const ImportOutcome outcome = ImportModelNow(file, importer);
    if (!outcome.model) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    outcome.message.toStdString());
    }
    return {ShapesOf(*outcome.model), outcome.model->report, outcome.model->materials.size()};
}

}  // namespace studio
