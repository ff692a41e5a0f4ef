#pragma once

#include "platform/TemporaryFolder.h"
#include "studio/import/ImportProcess.h"
#include "studio/import/ModelImport.h"

#include <QByteArray>
#include <QProcess>

#include <optional>

namespace studio {

/// One run of the importing process: starts it, listens to it, judges how it ended. Kills it when
/// destroyed early.
class ImportJob {
public:
    /// The argument tells the program what to import.
    ImportJob(QString file, const ImportProgram& program, const char* argument = kImportArgument);
    ~ImportJob();
    ImportJob(const ImportJob&) = delete;
    ImportJob& operator=(const ImportJob&) = delete;

    /// A failure that shows before anything is started, else None.
    [[nodiscard]] ImportFailure Start();
    [[nodiscard]] QProcess& Process() { return m_process; }
    /// With `None` the ended process itself is the judge.
    [[nodiscard]] ImportFailure Judge(ImportFailure failure) const;
    /// Where the process puts its answer; gone with the job.
    [[nodiscard]] QString OutputPath() const;
    /// For a person; names the file and the cause.
    [[nodiscard]] QString Message(ImportFailure failure) const;

    /// The judgement, and the model that came back.
    [[nodiscard]] ImportOutcome Outcome(ImportFailure failure);

private:
    void KeepComplaint();
    [[nodiscard]] ImportFailure FailureOfProcess() const;
    [[nodiscard]] ImportedModel ReadOutput() const;
    /// Returns what the model goes without.
    [[nodiscard]] QString TakeOutPictures(ImportedModel& model) const;
    /// The same, whatever it is, after taking out the pictures.
    [[nodiscard]] QString Remark(ImportedModel& model) const;

    QString m_file;
    QString m_program;
    QString m_argument;
    std::string m_pictureFolder;
    std::optional<CorvexMaterial::TemporaryFolder> m_folder;
    QProcess m_process;
    QByteArray m_complaint;  ///< the beginning of what it wrote to standard error
};

}  // namespace studio
