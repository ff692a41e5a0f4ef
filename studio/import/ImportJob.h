#pragma once

#include "studio/import/ModelImport.h"

#include <QByteArray>
#include <QProcess>
#include <QTemporaryDir>

namespace studio {

/// One run of the importing process: starts it, listens to it, judges how it ended. Kills it when
/// destroyed early.
class ImportJob {
public:
    ImportJob(QString file, const ImportProgram& program);
    ~ImportJob();
    ImportJob(const ImportJob&) = delete;
    ImportJob& operator=(const ImportJob&) = delete;

    /// A failure that shows before anything is started, else None.
    [[nodiscard]] ImportFailure Start();
    [[nodiscard]] QProcess& Process() { return m_process; }
    /// With `None` the ended process itself is the judge.
    [[nodiscard]] ImportOutcome Outcome(ImportFailure failure);

private:
    void KeepComplaint();
    [[nodiscard]] ImportFailure FailureOfProcess() const;
    [[nodiscard]] QString OutputPath() const;
    [[nodiscard]] ImportedModel ReadOutput() const;
    [[nodiscard]] QString Message(ImportFailure failure) const;

    QString m_file;
    QString m_program;
    QTemporaryDir m_folder;
    QProcess m_process;
    QByteArray m_complaint;  ///< the beginning of what it wrote to standard error
};

}  // namespace studio
