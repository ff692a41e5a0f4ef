#pragma once

#include "ModelImport.h"

#include <QPointer>

class QProgressDialog;

namespace studio {

/// Reads a model beside the running window: shows progress with a Cancel button, then announces how
/// it ended. What is on the screen stays as it is until then.
class ModelOpener : public QObject {
    Q_OBJECT

public:
    /// Pictures that are inside a model go into `Textures/` in the folder.
    ModelOpener(QWidget& window, ImportProgram program, std::string pictureFolder);
    ~ModelOpener() override;

    /// A reading that still runs is given up, without an announcement.
    void Open(const QString& file);

Q_SIGNALS:
    void Opened(const QString& file, const studio::ImportedModel& model);
    /// The message names the file and the cause.
    void Refused(const QString& file, const QString& message);
    void Cancelled(const QString& file);

private:
    void ShowProgress();
    void Conclude(const ImportOutcome& outcome);

    QWidget& m_window;
    ModelImport m_import;
    QString m_file;
    QPointer<QProgressDialog> m_progress;
};

}  // namespace studio
