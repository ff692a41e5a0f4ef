#pragma once

#include "ModelImport.h"
#include "TemporaryFolder.h"

#include <QByteArray>
#include <QProcess>

#include <optional>

namespace studio {

/// One run of the importing process: starts it, listens to it, judges how it ended. Kills it when
/// destroyed early.
class ImportJob {
public:
    ImportJob(QString file, const ImportProgram& program, Wanted wanted);
    ~ImportJob();
    ImportJob(const ImportJob&) = delete;
    ImportJob& operator=(const ImportJob&) = delete;

    /// A failure that shows before anything is started, else None.
    [[nodiscard]] ImportFailure Start();
    [[nodiscard]] QProcess& Process() { return m_process; }
    /// What came back, with the pictures taken out. With `None` the ended process itself is the
    /// judge.
    [[nodiscard]] ImportOutcome Outcome(ImportFailure failure);

private:
    void KeepComplaint();
    [[nodiscard]] ImportFailure FailureOfProcess() const;
    [[nodiscard]] ImportedModel ReadOutput() const;
    /// Where the process puts its answer; gone with the job.
    [[nodiscard]] QString OutputPath() const;
    [[nodiscard]] QString Message(ImportFailure failure) const;

    QString m_file;
    QString m_program;
    Wanted m_wanted;
    std::string m_pictureFolder;
    std::optional<CorvexMaterial::TemporaryFolder> m_folder;
    QProcess m_process;
    QByteArray m_complaint;  ///< the beginning of what it wrote to standard error
};

}  // namespace studio
