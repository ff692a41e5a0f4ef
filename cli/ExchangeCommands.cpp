#include "CommandContext.h"
#include "HeadlessThumbnails.h"
#include "Interchange.h"
#include "LibraryCommandTable.h"
#include "LibraryReading.h"
#include "MaterialAssignment.h"
#include "MaterialDocument.h"
#include "MaterialName.h"
#include "SceneReading.h"
#include "StoredPath.h"
#include "TextureText.h"
#include "Thumbnailer.h"
#include "Tr.h"

#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

void PrintNotes(CommandContext& context, const std::vector<std::string>& notes)
{
    for (const std::string& note : notes) {
        context.output.Result({{"note", QString::fromStdString(note)}},
                              {QString::fromStdString(note)});
    }
}

Alike AlikeIn(const CommandContext& context)
{
    return context.job.json ? Alike::Listed : Alike::Counted;
}

bool IsOwnDocument(const std::string& path)
{
    return QFileInfo(QString::fromStdString(path)).suffix().toLower() == QStringLiteral("json");
}

void NeedMaterials(const CommandContext& context)
{
    if (KindIn(context.job) != LibraryKind::Materials) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::InvalidArgument,
                                    context.job.library.toStdString() +
                                        ": only material libraries (.cvm) can do this.");
    }
}

std::vector<NamedMaterial> ImportedMaterials(CommandContext& context, const QString& source)
{
    std::vector<std::string> notes;
    auto materials =
        ReadMaterials(source, PicturesBeside(context.job.library), notes, AlikeIn(context));
    PrintNotes(context, notes);
    if (IsSceneDocument(source)) {
        StudioScene::Shapes wearers;
        for (const NamedMaterial& named : materials) {
            wearers.push_back(
                std::make_shared<StudioShape>(named.name, nullptr, WholeMaterial(named.material)));
        }
        for (const std::string& texture : TexturesNotFound(wearers)) {
            CommandOutput::Remark(
                Tr("There is no texture %1.").arg(QString::fromStdString(texture)));
        }
    }
    return materials;
}

LibraryFile OpenOrCreate(CommandContext& context)
{
    if (!QFileInfo::exists(context.job.library)) {
        CreateCommand(context);
    }
    return OpenIn(context.job);
}

void AddAll(CommandContext& context, LibraryFile& library, std::span<const NewEntry> entries)
{
    library.Add(entries);
    context.output.Result({{"added", static_cast<int>(entries.size())}},
                          {CountText("Entries added: %n.", entries.size())});
}

void AddMaterials(CommandContext& context, const std::vector<NamedMaterial>& materials)
{
    LibraryFile library = OpenOrCreate(context);
    HeadlessThumbnails thumbnails;
    std::vector<NewEntry> entries;
    for (const NamedMaterial& named : materials) {
        NewEntry entry = EntryOfMaterial(named, FolderOf(library.Path()));
        Apply(context.job.changes, entry.details);
        entry.png = thumbnails.Get().PngIfPossible(named.material);
        entries.push_back(std::move(entry));
        context.output.Progress(static_cast<qsizetype>(entries.size()),
                                static_cast<qsizetype>(materials.size()));
    }
    AddAll(context, library, entries);
}

void AddTextures(CommandContext& context)
{
    LibraryFile library = OpenOrCreate(context);
    std::vector<NewEntry> entries;
    for (const QString& operand : context.job.operands) {
        const std::string file = QFileInfo(operand).absoluteFilePath().toStdString();
        const auto picture = Thumbnailer::OfTexture(file);
        if (picture.thumbnail.isNull()) {
            context.output.Problem(QString::fromStdString(picture.error));
            continue;
        }
        entries.push_back(EntryOfTexture(file, FolderOf(library.Path()),
                                         {picture.size.width(), picture.size.height()}));
        Apply(context.job.changes, entries.back().details);
        entries.back().png = Thumbnailer::Png(picture.thumbnail);
    }
    AddAll(context, library, entries);
}

}  // namespace

void ExportCommand(CommandContext& context)
{
    NeedMaterials(context);
    LibraryFile library = OpenIn(context.job);
    std::vector<NamedMaterial> materials;
    ForEachSelected(library, context, [&](std::int32_t index) {
        MaterialReading reading = ReadMaterial(library, index);
        TellProblems(library, index, reading.problems, context);
        materials.push_back({library.NameAt(index), std::move(reading.material),
                             library.DetailsOf(library.IdAt(index))});
    });
    const std::string out = context.job.out.toStdString();
    std::vector<std::string> notes;
    if (IsOwnDocument(out)) {
        WriteMaterialDocument(out, materials);
    } else {
        Report report;
        ExportMaterials(out, materials, report);
        notes = NotesOf(report, materials.size(), AlikeIn(context));
    }
    PrintNotes(context, notes);
    const std::size_t count = materials.size();
    context.output.Result({{"exported", static_cast<int>(count)}},
                          {CountText("Materials written: %n.", count)});
}

void ImportCommand(CommandContext& context)
{
    NeedMaterials(context);
    std::vector<NamedMaterial> materials;
    // All are read before anything is added: a file that cannot be read leaves the library alone.
    for (const QString& source : context.job.operands) {
        auto read = ImportedMaterials(context, source);
        std::ranges::move(read, std::back_inserter(materials));
    }
    AddMaterials(context, materials);
}

void AddCommand(CommandContext& context)
{
    if (KindIn(context.job) == LibraryKind::Textures) {
        AddTextures(context);
        return;
    }
    NamedMaterial named;
    for (const QString& assignment : context.job.assignments) {
        static_cast<void>(AssignMaterial(named.material, assignment));
    }
    named.name = context.job.name.isEmpty() ? DescriptiveName(named.material)
                                            : context.job.name.toStdString();
    AddMaterials(context, {named});
}

}  // namespace studio
