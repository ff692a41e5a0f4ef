#include "studio/import/Interchange.h"

#include "platform/FileWriting.h"
#include "platform/QtTemporaryFiles.h"
#include "studio/Tr.h"
#include "studio/import/GltfProcess.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/gltf/GltfMaterials.h"
#include "studio/interchange/mtlx/MtlxMaterials.h"
#include "studio/interchange/wavefront/MtlMaterials.h"
#include "studio/libraries/LastingPicture.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace studio {
namespace {

using Materials = std::vector<NamedMaterial>;
using MaterialSpan = std::span<const NamedMaterial>;

struct Format {
    const char* suffix;
    const char* name;
    Materials (*read)(const std::string& path, Report& report, const ImportSetting& setting);
    /// Null for a format that is only read.
    QByteArray (*write)(MaterialSpan materials, const std::string& folder, Report& report);
};

Materials ReadMtl(const std::string& path, Report& report, const ImportSetting&)
{
    return MaterialsOfMtl(ReadDocument(path), path, report);
}

Materials ReadMtlx(const std::string& path, Report& report, const ImportSetting&)
{
    return MaterialsOfMtlx(ReadDocument(path), path, report);
}

constexpr std::array kFormats{
    Format{"mtl", QT_TRANSLATE_NOOP("Interchange", "Wavefront MTL"), ReadMtl, MtlOf},
    Format{"gltf", QT_TRANSLATE_NOOP("Interchange", "glTF"), ImportGltfMaterials, GltfOf},
    Format{"glb", QT_TRANSLATE_NOOP("Interchange", "glTF binary"), ImportGltfMaterials, nullptr},
    Format{"mtlx", QT_TRANSLATE_NOOP("Interchange", "MaterialX"), ReadMtlx, MtlxOf},
};

const Format* FormatOf(const std::string& path)
{
    const QString suffix = QFileInfo(QString::fromStdString(path)).suffix().toLower();
    const auto* format = std::ranges::find_if(
        kFormats, [&](const Format& row) { return suffix == QLatin1String(row.suffix); });
    return format == kFormats.end() ? nullptr : format;
}

/// Pictures of simulated raytrace materials, as far as they are in the temporary folder.
Materials WithLastingPictures(MaterialSpan materials, const std::string& folder)
{
    const QString temporary = QString::fromStdString(CorvexMaterial::QtTemporaryFiles().Folder());
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

QString FilterOf(const Format& format)
{
    return QStringLiteral("%1 (*.%2)").arg(Tr(format.name), QLatin1String(format.suffix));
}

}  // namespace

std::vector<NamedMaterial> ImportMaterials(const std::string& path, Report& report,
                                           const ImportSetting& setting)
{
    const Format* format = FormatOf(path);
    if (format == nullptr) {
        RefuseDocument(path,
                       Tr("only .mtl, .gltf, .glb and .mtlx files can be imported.").toStdString());
    }
    Report rows;
    Materials materials = format->read(path, rows, setting);
    if (materials.empty()) {
        RefuseDocument(path, Tr("it holds no materials.").toStdString());
    }
    for (const ReportRow& row : rows.Rows()) {
        report.Add(row);
    }
    return materials;
}

void ExportMaterials(const std::string& path, std::span<const NamedMaterial> materials,
                     Report& report)
{
    const Format* format = FormatOf(path);
    if (format == nullptr || format->write == nullptr) {
        RefuseDocument(path, Tr("only .mtl, .gltf and .mtlx files can be exported.").toStdString());
    }
    Report rows;
    const std::string folder = FolderOfDocument(path);
    CorvexMaterial::WriteFile(path,
                              format->write(WithLastingPictures(materials, folder), folder, rows));
    for (const ReportRow& row : rows.Rows()) {
        report.Add(row);
    }
}

QStringList ImportFilters()
{
    QStringList all;
    QStringList filters;
    for (const Format& format : kFormats) {
        all << QStringLiteral("*.%1").arg(QLatin1String(format.suffix));
        filters << FilterOf(format);
    }
    filters.prepend(QStringLiteral("%1 (%2)").arg(Tr("Material files"), all.join(u' ')));
    return filters;
}

QStringList ExportFilters()
{
    QStringList filters;
    for (const Format& format : kFormats) {
        if (format.write != nullptr) {
            filters << FilterOf(format);
        }
    }
    return filters;
}

QString SuffixOfFilter(const QString& filter)
{
    const auto* format =
        std::ranges::find_if(kFormats, [&](const Format& row) { return FilterOf(row) == filter; });
    return format == kFormats.end() ? QString() : u'.' + QString::fromLatin1(format->suffix);
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

}  // namespace studio
