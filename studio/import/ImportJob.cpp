#include "studio/import/ImportJob.h"

#include "host/Status.h"
#include "platform/QtRegularFile.h"
#include "studio/import/ModelFile.h"
#include "studio/interchange/ShapeNames.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <utility>

namespace studio {

namespace {

constexpr qsizetype kLongestComplaint = 1000;

struct FailureText {
    ImportFailure failure;
    const char* text;
};

constexpr std::array kFailureTexts{
    FailureText{ImportFailure::None, ""},
    FailureText{ImportFailure::NotFound,
                QT_TRANSLATE_NOOP("studio::ModelImport", "there is no such file.")},
    FailureText{ImportFailure::NotStarted,
                QT_TRANSLATE_NOOP("studio::ModelImport", "the importer could not be started.")},
    FailureText{ImportFailure::Crashed,
                QT_TRANSLATE_NOOP("studio::ModelImport",
                                  "the importer crashed on it. The file is probably damaged.")},
    FailureText{
        ImportFailure::TimedOut,
        QT_TRANSLATE_NOOP("studio::ModelImport", "reading it took too long and was stopped.")},
    FailureText{ImportFailure::Cancelled,
                QT_TRANSLATE_NOOP("studio::ModelImport", "reading it was cancelled.")},
    FailureText{ImportFailure::Refused,
                QT_TRANSLATE_NOOP("studio::ModelImport", "it is not a model that can be read.")},
    FailureText{ImportFailure::OutOfMemory,
                QT_TRANSLATE_NOOP("studio::ModelImport", "there is not enough memory for it.")},
    FailureText{
        ImportFailure::Damaged,
        QT_TRANSLATE_NOOP("studio::ModelImport", "the importer did not hand back a valid model.")},
};

constexpr bool RowsFollowEnum()
{
    for (std::size_t row = 0; row < kFailureTexts.size(); ++row) {
        if (kFailureTexts[row].failure != static_cast<ImportFailure>(row)) {
            return false;
        }
    }
    return kFailureTexts.size() == static_cast<std::size_t>(ImportFailure::Damaged) + 1;
}
static_assert(RowsFollowEnum());

QString TextOf(ImportFailure failure)
{
    const char* text = kFailureTexts[static_cast<std::size_t>(failure)].text;
    return QCoreApplication::translate("studio::ModelImport", text);
}

}  // namespace

ImportJob::ImportJob(QString file, const ImportProgram& program, const char* argument)
    : m_file(std::move(file)),
      m_program(program.path.isEmpty() ? QCoreApplication::applicationFilePath() : program.path),
      m_argument(QString::fromLatin1(argument)), m_pictureFolder(program.pictureFolder)
{
    m_process.setStandardInputFile(QProcess::nullDevice());
    m_process.setStandardOutputFile(QProcess::nullDevice());
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process,
                     [this] { KeepComplaint(); });
}

ImportJob::~ImportJob()
{
    m_process.disconnect();
    m_process.kill();
    m_process.waitForFinished(5000);
}

ImportFailure ImportJob::Start()
{
    if (!QFileInfo::exists(m_file)) {
        return ImportFailure::NotFound;
    }
    try {
        m_folder.emplace("import");
    } catch (const CorvexMaterial::Error&) {
        return ImportFailure::NotStarted;
    }
    m_process.start(m_program, {m_argument, QFileInfo(m_file).absoluteFilePath(), OutputPath()},
                    QIODevice::ReadOnly);
    return ImportFailure::None;
}

ImportFailure ImportJob::Judge(ImportFailure failure) const
{
    return failure == ImportFailure::None ? FailureOfProcess() : failure;
}

ImportOutcome ImportJob::Outcome(ImportFailure failure)
{
    ImportOutcome outcome;
    outcome.failure = Judge(failure);
    try {
        if (outcome.failure == ImportFailure::None) {
            outcome.model = ReadOutput();
            outcome.message = Remark(*outcome.model);
        }
    } catch (const std::bad_alloc&) {
        outcome.failure = ImportFailure::OutOfMemory;
    } catch (const std::exception&) {
        outcome.failure = ImportFailure::Damaged;
    }
    if (outcome.failure != ImportFailure::None) {
        outcome.model.reset();
        outcome.message = Message(outcome.failure);
    }
    return outcome;
}

void ImportJob::KeepComplaint()
{
    m_complaint += m_process.readAllStandardError();
    m_complaint.truncate(kLongestComplaint);
}

ImportFailure ImportJob::FailureOfProcess() const
{
    if (m_process.error() == QProcess::FailedToStart) {
        return ImportFailure::NotStarted;
    }
    if (m_process.exitStatus() == QProcess::CrashExit) {
        return ImportFailure::Crashed;
    }
    switch (static_cast<ImportExit>(m_process.exitCode())) {
    case ImportExit::Done:
        return ImportFailure::None;
    case ImportExit::Refused:
        return ImportFailure::Refused;
    case ImportExit::TookTooLong:
        return ImportFailure::TimedOut;
    case ImportExit::OutOfMemory:
        return ImportFailure::OutOfMemory;
    case ImportExit::NoOutput:
    case ImportExit::Misused:
        return ImportFailure::Damaged;
    }
    return ImportFailure::Crashed;
}

QString ImportJob::OutputPath() const
{
    return QString::fromStdString(m_folder->FilePath("model"));
}

ImportedModel ImportJob::ReadOutput() const
{
    QFile output(OutputPath());
    constexpr std::int64_t kMostAnswerBytes = std::int64_t{2} << 30;
    if (const auto obstacle = CorvexMaterial::OpenRegular(output, kMostAnswerBytes);
        !obstacle.empty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, obstacle);
    }
    const uchar* bytes = output.map(0, output.size());
    if (bytes == nullptr) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "the result is empty");
    }
    ImportedModel model =
        UnpackModel(std::as_bytes(std::span(bytes, static_cast<std::size_t>(output.size()))));
    if (model.shapes.empty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "the model is empty");
    }
    for (ImportedShape& shape : model.shapes) {
        shape.name = ReadableName(shape.name, QFileInfo(m_file).completeBaseName().toStdString());
    }
    return model;
}

// A model is better shown without its pictures than not at all.
QString ImportJob::TakeOutPictures(ImportedModel& model) const
{
    const std::string base = QFileInfo(m_file).completeBaseName().toStdString();
    const std::vector<EmbeddedPicture> pictures = std::exchange(model.pictures, {});
    std::size_t lost = 0;
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        const std::string owner = i == 0 ? base : base + ' ' + std::to_string(i + 1);
        try {
            const std::string path = m_pictureFolder.empty()
                                         ? std::string()
                                         : KeepPicture(pictures[i], owner, m_pictureFolder);
            lost += path.empty() ? 1 : 0;
            for (const std::size_t wearer : pictures[i].wearers) {
                std::string& texture = model.materials[wearer].Textures.primary;
                texture = path.empty() ? texture : path;
            }
        } catch (const CorvexMaterial::Error& error) {
            return QString::fromUtf8(error.what());
        }
    }
    return lost == 0
               ? QString()
               : QCoreApplication::translate("studio::ModelImport",
                                             "Pictures inside the model that cannot be read: %1.")
                     .arg(lost);
}

QString ImportJob::Remark(ImportedModel& model) const
{
    QStringList remarks{TakeOutPictures(model)};
    if (model.manyColours) {
        remarks << QCoreApplication::translate(
            "studio::ModelImport", "A surface has one colour: that of its vertices on average.");
    }
    remarks << QString::fromStdString(model.refusedFile);
    remarks.removeAll(QString());
    return remarks.join(u' ');
}

QString ImportJob::Message(ImportFailure failure) const
{
    QString cause = TextOf(failure);
    const bool isExplained =
        failure == ImportFailure::Refused || failure == ImportFailure::TimedOut;
    if (isExplained && !m_complaint.isEmpty()) {
        QByteArray reason = m_complaint;
        const QByteArray prefix = QFile::encodeName(QFileInfo(m_file).absoluteFilePath()) + ": ";
        if (reason.startsWith(prefix)) {
            reason.remove(0, prefix.size());
        }
        cause =
            QStringLiteral("%1 (%2)").arg(cause, QString::fromUtf8(reason).simplified().left(300));
    }
    return QCoreApplication::translate("studio::ModelImport", "\"%1\" cannot be opened: %2")
        .arg(QDir::toNativeSeparators(m_file), cause);
}

}  // namespace studio
