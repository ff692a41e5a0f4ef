#include "SceneReading.h"

#include "DocumentSchema.h"
#include "LibraryFile.h"
#include "LibraryReading.h"
#include "MaterialDocument.h"
#include "ModelShapes.h"
#include "StudioProfile.h"
#include "Terminal.h"
#include "Tr.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>

#include <map>

namespace studio {
namespace {

QString SuffixOf(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

SceneReading ReadModelScene(const QString& file, const std::string& pictureFolder)
{
    ImportProgram importer;
    importer.pictureFolder = pictureFolder;
    ImportOutcome outcome = ImportModelNow(file, importer);
    if (!outcome.model) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    outcome.message.toStdString());
    }
    SceneReading reading;
    for (const auto& shape : ShapesOf(*outcome.model)) {
        reading.content.shapes.push_back(shape->State());
    }
    reading.content.source = SourceModelAt(file.toStdString(), outcome.model->files);
    reading.report = std::move(outcome.model->report);
    return reading;
}

std::vector<NamedMaterial> ReadLibraryMaterials(const std::string& file,
                                                std::vector<std::string>& notes)
{
    LibraryFile library = LibraryFile::Open(file, LibraryKind::Materials);
    std::vector<NamedMaterial> materials;
    for (std::int32_t index = 0; index < library.Count(); ++index) {
        MaterialReading reading = ReadMaterial(library, index);
        materials.push_back({library.NameAt(index), std::move(reading.material),
                             library.DetailsOf(library.IdAt(index))});
        for (const std::string& problem : reading.problems) {
            notes.push_back(materials.back().name + ": " + problem);
        }
    }
    return materials;
}

}  // namespace

void TellReading(const SceneReading& reading, const QString& file, const Remark& loss)
{
    constexpr std::size_t kMostTold = 20;
    const std::size_t materials = MaterialsOf(reading.content).size();
    PrintProgress(Tr("%1: shapes %2, materials %3.")
                      .arg(QFileInfo(file).fileName())
                      .arg(reading.content.shapes.size())
                      .arg(materials));
    const std::vector<std::string> notes = NotesOf(reading.report, materials);
    const Remark remark = reading.report.Count(Outcome::Dropped) > 0 ? loss : Remark(PrintProblem);
    for (std::size_t i = 0; i + 1 < notes.size() && i < kMostTold; ++i) {
        remark(QString::fromStdString(notes[i]));
    }
    if (notes.size() > 1) {
        remark(QString::fromStdString(notes.back()));
    }
}

std::string DocumentPictureFolder()
{
    return (UserProfile().cacheFolder + QStringLiteral("/Documents")).toStdString();
}

PictureFolders PicturesBeside(const QString& file)
{
    const std::string folder = QFileInfo(file).absolutePath().toStdString();
    return {folder, folder + "/Textures"};
}

bool IsSceneDocument(const QString& file)
{
    return SuffixOf(file) == QLatin1String(kDocumentSuffix);
}

SceneReading ReadScene(const QString& file, const PictureFolders& pictures, SceneDocument::Use use)
{
    if (!IsSceneDocument(file)) {
        return ReadModelScene(file, pictures.ofModel);
    }
    auto opened = SceneDocument::Open(file.toStdString(), pictures.ofDocument, use);
    SceneReading reading;
    reading.content = std::move(opened.content);
    const std::string name = QFileInfo(file).fileName().toStdString();
    for (const std::string& problem : opened.problems) {
        reading.report.Add({name, "document", Outcome::Dropped, problem});
    }
    reading.document.emplace(std::move(opened.document));
    return reading;
}

StudioScene::Shapes ShapesOf(const SceneContent& content)
{
    StudioScene::Shapes shapes;
    for (const ShapeState& state : content.shapes) {
        shapes.push_back(std::make_shared<StudioShape>(state));
    }
    return shapes;
}

std::vector<WornMaterial> MaterialsOf(const SceneContent& content)
{
    std::map<std::pair<const void*, const void*>, std::size_t> known;
    std::vector<WornMaterial> materials;
    for (std::size_t place = 0; place < content.shapes.size(); ++place) {
        const ShapeState& shape = content.shapes[place];
        const AppliedMaterial& applied = shape.applied;
        const auto [at, isNew] =
            known.try_emplace({applied.gathered.get(), applied.identity.get()}, materials.size());
        if (isNew) {
            const bool isNamed = applied.identity != nullptr && !applied.identity->name.empty();
            materials.push_back({isNamed ? applied.identity->name : shape.name, applied, {}});
        }
        materials[at->second].wearers.push_back(place);
    }
    return materials;
}

std::vector<NamedMaterial> ReadMaterials(const QString& file, const PictureFolders& pictures,
                                         std::vector<std::string>& notes, Alike alike)
{
    const std::string path = file.toStdString();
    if (IsSceneDocument(file)) {
        const SceneReading reading = ReadScene(file, pictures);
        std::vector<NamedMaterial> materials;
        for (const WornMaterial& worn : MaterialsOf(reading.content)) {
            materials.push_back({worn.name, worn.applied.gathered->material});
        }
        if (!reading.report.Rows().empty()) {
            notes = NotesOf(reading.report, materials.size(), alike);
        }
        return materials;
    }
    if (SuffixOf(file) == QLatin1String(LibrarySuffix(LibraryKind::Materials))) {
        return ReadLibraryMaterials(path, notes);
    }
    if (SuffixOf(file) == QStringLiteral("json")) {
        return ReadMaterialDocument(path, notes);
    }
    Report report;
    ImportProgram importer;
    importer.pictureFolder = pictures.ofModel;
    auto materials = ImportMaterials(path, report, importer);
    notes = NotesOf(report, materials.size(), alike);
    return materials;
}

}  // namespace studio
