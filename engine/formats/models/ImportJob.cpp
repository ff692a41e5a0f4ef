#include "ImportJob.h"

#include "EmbeddedPictures.h"
#include "ModelPacking.h"
#include "QtRegularFile.h"
#include "ShapeNames.h"
#include <CorvexMaterial/Status.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

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

ImportJob::ImportJob(QString file, const ImportProgram& program, Wanted wanted)
    : m_file(std::move(file)),
      m_program(program.path.isEmpty() ? QCoreApplication::applicationFilePath() : program.path),
      m_wanted(wanted), m_pictureFolder(program.pictureFolder)
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
    m_process.start(m_program,
                    {QString::fromLatin1(ArgumentFor(m_wanted)),
                     QFileInfo(m_file).absoluteFilePath(), OutputPath()},
                    QIODevice::ReadOnly);
    return ImportFailure::None;
}

ImportOutcome ImportJob::Outcome(ImportFailure failure)
{
    ImportOutcome outcome;
    outcome.failure = failure == ImportFailure::None ? FailureOfProcess() : failure;
    try {
        if (outcome.failure == ImportFailure::None) {
            outcome.model = ReadOutput();
            TakeOutPictures(*outcome.model, m_pictureFolder);
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
    if (m_wanted == Wanted::Model && model.shapes.empty()) {
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, "the model is empty");
    }
    for (ImportedShape& shape : model.shapes) {
        shape.name = ReadableName(shape.name, QFileInfo(m_file).completeBaseName().toStdString());
    }
    return model;
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
