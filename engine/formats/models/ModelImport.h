#pragma once

#include "ImportProcess.h"
#include "ImportedModel.h"

#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace studio {

class ImportJob;

enum class ImportFailure {
    None,
    NotFound,
    NotStarted,
    Crashed,
    TimedOut,
    Cancelled,
    Refused,
    OutOfMemory,
    Damaged,  ///< the importing process answered with something that is no model
};

struct ImportOutcome {
    std::optional<ImportedModel> model;  ///< set exactly when there is no failure
    ImportFailure failure = ImportFailure::None;
    QString message;  ///< of a failure: names the file and the cause
};

/// The program that does the importing, given `--import-model <file> <output>` or
/// `--import-materials <file> <output>`.
struct ImportProgram {
    QString path;  ///< empty: this very program
    /// It stops itself earlier, by the size of what it reads; this is for one that does not.
    std::chrono::milliseconds timeLimit = std::chrono::minutes(10);
    /// Asked again and again while one waits; true gives up. It may handle events.
    std::function<bool()> cancelled = [] { return false; };
    /// Where `Textures/` takes the pictures that are inside a file. Empty: it goes without them.
    std::string pictureFolder = {};
};

/// Waits. Never throws, whatever the file or the importing process does.
[[nodiscard]] ImportOutcome ImportModelNow(const QString& file, const ImportProgram& program = {},
                                           Wanted wanted = Wanted::Model);

/// Reads a user's model in a process of its own, so that a file which crashes or blocks the
/// importer costs a message.
class ModelImport : public QObject {
    Q_OBJECT

public:
    explicit ModelImport(ImportProgram program = {}, QObject* parent = nullptr);
    /// Ends a running import without a signal.
    ~ModelImport() override;

    /// `Finished` follows, from the event loop. An import that still runs is cancelled first.
    void Start(const QString& file);
    /// `Finished` follows before this returns when an import was running.
    void Cancel();
    [[nodiscard]] bool Running() const { return m_job != nullptr; }

Q_SIGNALS:
    void Finished(const studio::ImportOutcome& outcome);

private:
    void Judge(quint64 run);
    void End(ImportFailure failure);

    ImportProgram m_program;
    std::unique_ptr<ImportJob> m_job;
    QTimer m_limit;
    quint64 m_run = 0;
    /// What it means when the limit is reached: nothing was started, or it took too long.
    ImportFailure m_onTimeout = ImportFailure::TimedOut;
};

}  // namespace studio

Q_DECLARE_METATYPE(studio::ImportOutcome)
