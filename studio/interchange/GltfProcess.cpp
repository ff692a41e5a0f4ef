#include "studio/interchange/GltfProcess.h"

#include "host/Status.h"
#include "studio/import/ImportJob.h"
#include "studio/import/ImportProcess.h"
#include "studio/interchange/DocumentFile.h"
#include "studio/interchange/GltfMaterials.h"
#include "studio/interchange/MaterialPacking.h"

#include <string_view>

namespace studio {
namespace {

ImportFailure WaitFor(ImportJob& job, std::chrono::milliseconds limit)
{
    const ImportFailure failure = job.Start();
    const bool ended = failure != ImportFailure::None ||
                       job.Process().waitForFinished(static_cast<int>(limit.count())) ||
                       job.Process().state() == QProcess::NotRunning;
    return job.Judge(ended ? failure : ImportFailure::TimedOut);
}

[[noreturn]] void RefuseGltf(const ImportJob& job, ImportFailure failure)
{
    throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed,
                                job.Message(failure).toStdString());
}

}  // namespace

std::vector<NamedMaterial> ImportGltfMaterials(const std::string& path, Report& report,
                                               const ImportProgram& program)
{
    ImportJob job(QString::fromStdString(path), program, kImportMaterialsArgument);
    const ImportFailure failure = WaitFor(job, program.timeLimit);
    if (failure != ImportFailure::None) {
        RefuseGltf(job, failure);
    }
    try {
        ImportedMaterials imported = UnpackMaterials(ReadDocument(job.OutputPath().toStdString()));
        for (const ReportRow& row : imported.report.Rows()) {
            report.Add(row);
        }
        return std::move(imported.materials);
    } catch (const CorvexMaterial::Error&) {
        RefuseGltf(job, ImportFailure::Damaged);
    }
}

std::optional<int> RunMaterialImportIfAsked(int argc, char** argv)
{
    if (argc < 2 || std::string_view(argv[1]) != kImportMaterialsArgument) {
        return std::nullopt;
    }
    const std::vector<std::string> arguments(argv + 2, argv + argc);
    return RunContained(arguments, [](const std::string& path) {
        ImportedMaterials imported;
        imported.materials = ReadWornMaterials(path, imported.report);
        return PackMaterials(imported);
    });
}

}  // namespace studio
