#include "Interchange.h"

#include "DocumentFile.h"
#include "FileWriting.h"
#include "Formats.h"
#include "JobFolder.h"
#include "LastingPicture.h"
#include "Tr.h"
#include <CorvexMaterial/Status.h>

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <iterator>

namespace studio {
namespace {

using Materials = std::vector<NamedMaterial>;
using MaterialSpan = std::span<const NamedMaterial>;

/// Pictures of simulated raytrace materials, as far as they are in the temporary folder.
Materials WithLastingPictures(MaterialSpan materials, const std::string& folder)
{
    const QString temporary = QString::fromStdString(CorvexMaterial::JobFolder());
    Materials lasting(materials.begin(), materials.end());
    for (NamedMaterial& named : lasting) {
        std::string& primary = named.material.Textures.primary;
        const QFileInfo file(QString::fromStdString(primary));
        if (file.isFile() && file.absolutePath() == temporary) {
            primary = WithLastingPicture(primary, folder);
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

QString FilterOf(const Format& format)
{
    return QStringLiteral("%1 (*.%2)").arg(Tr(format.name), QLatin1String(format.suffix));
}

}  // namespace

std::vector<NamedMaterial> ImportMaterials(const std::string& path, Report& report,
                                           const ImportProgram& importer)
{
    ImportedModel model = Read(path, importer);
    if (model.materials.empty()) {
        RefuseDocument(path, Tr("it holds no materials.").toStdString());
    }
    for (const ReportRow& row : model.report.Rows()) {
        report.Add(row);
    }
    return std::move(model.materials);
}

void ExportMaterials(const std::string& path, std::span<const NamedMaterial> materials,
                     Report& report)
{
    const Format* format = FormatOf(path);
    if (format == nullptr || !IsWritten(*format)) {
        RefuseDocument(path, Tr("only these files can be exported: %1.")
                                 .arg(Suffixes(".", ", ", IsWritten))
                                 .toStdString());
    }
    Report rows;
    const std::string folder = FolderOfDocument(path);
    CorvexMaterial::WriteFile(path,
                              format->write(WithLastingPictures(materials, folder), folder, rows));
    for (const ReportRow& row : rows.Rows()) {
        report.Add(row);
    }
}

QString ModelPatterns()
{
    return Suffixes("*.", " ", [](const Format& format) { return format.hasShapes; });
}

QStringList ImportFilters()
{
    const auto isAny = [](const Format&) { return true; };
    QStringList filters{
        QStringLiteral("%1 (%2)").arg(Tr("Material files"), Suffixes("*.", " ", isAny))};
    std::ranges::transform(Formats(), std::back_inserter(filters), FilterOf);
    return filters;
}

QStringList ExportFilters()
{
    QStringList filters;
    for (const Format& format : Formats()) {
        if (IsWritten(format)) {
            filters << FilterOf(format);
        }
    }
    return filters;
}

QString SuffixOfFilter(const QString& filter)
{
    const auto format = std::ranges::find(Formats(), filter, FilterOf);
    return format == Formats().end() ? QString() : u'.' + QString::fromLatin1(format->suffix);
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

std::vector<std::string> NotesOf(const Report& report, std::size_t materials)
{
    std::vector<std::string> notes;
    for (const ReportRow& row : report.Rows()) {
        if (row.outcome != Outcome::Mapped) {
            notes.push_back(row.material + ": " + row.property + " " + TextOf(row.outcome) + ", " +
                            row.note);
        }
    }
    notes.push_back(SummaryOf(report, materials).toStdString());
    return notes;
}

}  // namespace studio
