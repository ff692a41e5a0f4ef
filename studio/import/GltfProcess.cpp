#include "studio/import/GltfProcess.h"

#include "host/Status.h"
#include "studio/import/EmbeddedPictures.h"
#include "studio/import/ImportJob.h"
#include "studio/import/ImportProcess.h"
#include "studio/import/MaterialPacking.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/gltf/GltfMaterials.h"

#include <QDeadlineTimer>

#include <string_view>

namespace studio {
namespace {

ImportFailure WaitFor(ImportJob& job, const ImportProgram& program)
{
    constexpr int kLookEveryMilliseconds = 30;
    const ImportFailure failure = job.Start();
    const QDeadlineTimer deadline(program.timeLimit);
    while (job.Process().state() != QProcess::NotRunning &&
           !job.Process().waitForFinished(kLookEveryMilliseconds)) {
        if (program.cancelled()) {
            return ImportFailure::Cancelled;
        }
        if (deadline.hasExpired()) {
            return ImportFailure::TimedOut;
        }
    }
    return job.Judge(failure);
}

[[noreturn]] void RefuseGltf(const ImportJob& job, ImportFailure failure)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                job.Message(failure).toStdString());
}

ImportedMaterials AnswerOf(const ImportJob& job)
{
    try {
        return UnpackMaterials(ReadDocument(job.OutputPath().toStdString()));
    } catch (const CorvexMaterial::Error&) {
        RefuseGltf(job, ImportFailure::Damaged);
    }
}

}  // namespace

std::vector<NamedMaterial> ImportGltfMaterials(const std::string& path, Report& report,
                                               const ImportSetting& setting)
{
    ImportJob job(QString::fromStdString(path), setting.importer, kImportMaterialsArgument);
    const ImportFailure failure = WaitFor(job, setting.importer);
    if (failure != ImportFailure::None) {
        RefuseGltf(job, failure);
    }
    ImportedMaterials imported = AnswerOf(job);
    TakeOutPictures(imported, setting.pictureFolder);
    for (const ReportRow& row : imported.report.Rows()) {
        report.Add(row);
    }
    return std::move(imported.materials);
}

std::optional<int> RunMaterialImportIfAsked(int argc, char** argv)
{
    if (argc < 2 || std::string_view(argv[1]) != kImportMaterialsArgument) {
        return std::nullopt;
    }
    const std::vector<std::string> arguments(argv + 2, argv + argc);
    return RunContained(
        arguments, [](const std::string& path) { return PackMaterials(ReadWornMaterials(path)); });
}

}  // namespace studio
