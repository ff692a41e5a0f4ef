#include "ConvertCommand.h"

#include "CommandOutput.h"
#include "Formats.h"
#include "Interchange.h"
#include "SceneReading.h"
#include "TemporaryFolder.h"
#include "Tr.h"

namespace studio {
namespace {

void TellReport(const Report& report, std::size_t materials, CommandOutput& output)
{
    for (const ReportRow& row : report.Rows()) {
        const QString text = QString::fromStdString(NoteOf(row));
        output.Result({{"material", QString::fromStdString(row.material)},
                       {"property", QString::fromStdString(row.property)},
                       {"outcome", QString::fromStdString(TextOf(row.outcome))},
                       {"note", QString::fromStdString(row.note)}},
                      row.outcome == Outcome::Mapped ? QStringList() : QStringList{text});
    }
    QJsonObject counts{{"materials", static_cast<qint64>(materials)}};
    for (const Outcome outcome : {Outcome::Mapped, Outcome::Approximated, Outcome::Dropped}) {
        counts[QString::fromStdString(TextOf(outcome))] =
            static_cast<qint64>(report.Count(outcome));
    }
    output.Result(counts, {SummaryOf(report, materials)});
}

/// Whether nothing of it was lost.
bool ConvertNow(const ConvertJob& job, CommandOutput& output)
{
    const CorvexMaterial::TemporaryFolder passing("pictures");
    const Format* target = FormatOf(job.output.toStdString());
    const bool holdsPictures = target != nullptr && target->holdsPictures;
    const SceneReading scene =
        ReadScene(job.input, holdsPictures ? PictureFolders{passing.Path(), DocumentPictureFolder()}
                                           : PicturesBeside(job.output));
    const StudioScene::Shapes shapes = ShapesOf(scene.content);
    const std::vector<std::string> missing = TexturesNotFound(shapes);
    for (const std::string& texture : missing) {
        output.Remark(Tr("There is no texture %1.").arg(QString::fromStdString(texture)));
    }
    Report report = scene.report;
    const std::size_t materials = ExportScene(job.output.toStdString(), shapes, report);
    TellReport(report, materials, output);
    return missing.empty() && report.Count(Outcome::Dropped) == 0;
}

}  // namespace

ExitCode Convert(const ConvertJob& job)
{
    CommandOutput output(job.json);
    bool isWhole = false;
    output.Telling([&] { isWhole = ConvertNow(job, output); });
    const bool isRefused = job.strict && !isWhole;
    return output.HasProblems() || isRefused ? ExitCode::Failed : ExitCode::Done;
}

}  // namespace studio
