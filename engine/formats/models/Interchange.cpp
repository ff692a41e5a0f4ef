#include "Interchange.h"

#include "DocumentFile.h"
#include "FileSet.h"
#include "Formats.h"
#include "JobFolder.h"
#include "LastingPicture.h"
#include "ModelShapes.h"
#include "SurfaceLayers.h"
#include "TextureFile.h"
#include "Tr.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace studio {
namespace {

using Materials = std::vector<NamedMaterial>;
using MaterialSpan = std::span<const NamedMaterial>;

/// Pictures of simulated raytrace materials, as far as they are in the temporary folder.
Materials WithLastingPictures(MaterialSpan materials, const std::string& folder,
                              CorvexMaterial::FileSet& files)
{
    const QString temporary = QString::fromStdString(CorvexMaterial::JobFolder());
    Materials lasting(materials.begin(), materials.end());
    for (NamedMaterial& named : lasting) {
        std::string& primary = named.material.Textures.primary;
        const QFileInfo file(QString::fromStdString(primary));
        if (file.isFile() && file.absolutePath() == temporary) {
            primary = WithLastingPicture(primary, folder, &files);
        }
    }
    return lasting;
}

ImportedModel Read(const std::string& path, const ImportProgram& importer)
{
    if (const Format* format = FormatOf(path); format != nullptr && !format->hasShapes) {
        return format->read(path);
    }
    ImportOutcome outcome =
        ImportModelNow(QString::fromStdString(path), importer, Wanted::Materials);
    if (!outcome.model) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                    outcome.message.toStdString());
    }
    return std::move(*outcome.model);
}

/// Of the formats that are meant, their suffixes behind the opening.
QString Suffixes(const char* opening, const char* between, bool (*isMeant)(const Format&))
{
    QStringList suffixes;
    for (const Format& format : Formats()) {
        if (isMeant(format)) {
            suffixes << QLatin1String(opening) + QLatin1String(format.suffix);
        }
    }
    return suffixes.join(QLatin1String(between));
}

bool IsWritten(const Format& format)
{
    return format.write != nullptr;
}

bool HoldsScene(const Format& format)
{
    return format.writeScene != nullptr;
}

void Append(const Report& rows, Report& report)
{
    for (const ReportRow& row : rows.Rows()) {
        report.Add(row);
    }
}

bool IsThereOrNone(const std::string& texture)
{
    return texture.empty() || QFileInfo(QString::fromStdString(texture)).isFile();
}

/// Textures that nobody will see; they are named all the same.
void AddUnread(ImportedModel& scene)
{
    std::map<std::string, bool> areImages{{{}, true}};
    for (const auto& [name, material, details] : scene.materials) {
        for (const LayerRow& layer : kLayerRows) {
            const std::string& file = material.Textures.*layer.file;
            const auto [isImage, isNew] = areImages.try_emplace(file, false);
            if (isNew) {
                isImage->second = IsTextureFile(file);
            }
            if (!isImage->second) {
                MaterialNotes(scene.report, name)
                    .Add(Tr("Texture file").toStdString(), Outcome::Dropped,
                         IsThereOrNone(file)
                             ? QT_TRANSLATE_NOOP("Interchange", "%1 is no image that can be read")
                             : QT_TRANSLATE_NOOP("Interchange", "there is no file %1"),
                         file);
            }
        }
    }
}

QString FilterOf(const Format& format)
{
    return QStringLiteral("%1 (*.%2)").arg(Tr(format.name), QLatin1String(format.suffix));
}

QStringList FiltersOf(bool (*isMeant)(const Format&))
{
    QStringList filters;
    for (const Format& format : Formats()) {
        if (isMeant(format)) {
            filters << FilterOf(format);
        }
    }
    return filters;
}

}  // namespace

std::vector<NamedMaterial> ImportMaterials(const std::string& path, Report& report,
                                           const ImportProgram& importer)
{
    ImportedModel model = Read(path, importer);
    if (model.materials.empty()) {
        RefuseDocument(path, Tr("it holds no materials.").toStdString());
    }
    Append(model.report, report);
    return std::move(model.materials);
}

void ExportMaterials(const std::string& path, std::span<const NamedMaterial> materials,
                     Report& report, const std::stop_token& stop)
{
    const Format* format = FormatOf(path);
    if (format == nullptr || !IsWritten(*format)) {
        RefuseDocument(path, Tr("only these files can be exported: %1.")
                                 .arg(Suffixes(".", ", ", IsWritten))
                                 .toStdString());
    }
    Report rows;
    const std::string folder = FolderOfDocument(path);
    CorvexMaterial::FileSet files(stop);
    const Materials lasting = WithLastingPictures(materials, folder, files);
    files.Add(path).Write(format->write(lasting, folder, rows));
    files.Finish();
    Append(rows, report);
}

ExportedScene ExportScene(const std::string& path, const StudioScene::Shapes& shapes,
                          Report& report, const std::stop_token& stop)
{
    if (!IsSceneFile(path)) {
        RefuseDocument(path,
                       Tr("a scene is exported as %1.").arg(SceneSuffixes(", ")).toStdString());
    }
    ImportedModel scene = ModelOf(shapes, stop);
    if (scene.shapes.empty()) {
        RefuseDocument(path, Tr("there is no surface that it could hold.").toStdString());
    }
    const Format& format = *FormatOf(path);
    CorvexMaterial::FileSet files(stop);
    if (!format.holdsPictures) {
        scene.materials = WithLastingPictures(scene.materials, FolderOfDocument(path), files);
    }
    AddUnread(scene);
    Report rows;
    format.writeScene(scene, path, rows, files);
    files.Finish();
    Append(scene.report, report);
    Append(rows, report);
    return {scene.materials.size(), files.Paths()};
}

std::vector<std::string> TexturesNotFound(const StudioScene::Shapes& shapes)
{
    std::set<std::string> files;
    for (const auto& shape : shapes) {
        for (const LayerRow& layer : kLayerRows) {
            files.insert(shape->Material().Textures.*layer.file);
        }
    }
    std::erase_if(files, IsThereOrNone);
    return {files.begin(), files.end()};
}

QString ModelPatterns()
{
    return Suffixes("*.", " ", [](const Format& format) { return format.hasShapes; });
}

QStringList ImportFilters()
{
    const auto isAny = [](const Format&) { return true; };
    const QString all = Suffixes("*.", " ", isAny);
    return QStringList(QStringLiteral("%1 (%2)").arg(Tr("Material files"), all)) + FiltersOf(isAny);
}

QStringList ExportFilters()
{
    return FiltersOf(IsWritten);
}

QStringList SceneFilters()
{
    return FiltersOf(HoldsScene);
}

QString SceneSuffixes(const char* between)
{
    return Suffixes(".", between, HoldsScene);
}

bool IsSceneFile(const std::string& path)
{
    const Format* format = FormatOf(path);
    return format != nullptr && HoldsScene(*format);
}

QString SummaryOf(const Report& report, std::size_t materials)
{
    const QString count = materials == 1 ? Tr("1 material") : Tr("%1 materials").arg(materials);
    return Tr("%1: %2 properties mapped, %3 approximated, %4 dropped.")
        .arg(count)
        .arg(report.Count(Outcome::Mapped))
        .arg(report.Count(Outcome::Approximated))
        .arg(report.Count(Outcome::Dropped));
}

std::string NoteOf(const ReportRow& row)
{
    return row.material + ": " + row.property + " " + TextOf(row.outcome) + ", " + row.note;
}

std::vector<std::string> NotesOf(const Report& report, std::size_t materials, Alike alike)
{
    std::vector<std::string> notes;
    for (const ReportRow& row : alike == Alike::Listed ? report.Rows() : LossesIn(report)) {
        if (row.outcome != Outcome::Mapped) {
            notes.push_back(NoteOf(row));
        }
    }
    notes.push_back(SummaryOf(report, materials).toStdString());
    return notes;
}

}  // namespace studio
