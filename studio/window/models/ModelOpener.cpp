#include "ModelOpener.h"

#include "WaitDialog.h"

#include <QFileInfo>
#include <QSignalBlocker>

namespace studio {
namespace {

ImportProgram KeepingPictures(ImportProgram program, std::string folder)
{
    program.pictureFolder = std::move(folder);
    return program;
}

}  // namespace

ModelOpener::ModelOpener(QWidget& window, ImportProgram program, std::string pictureFolder)
    : m_window(window), m_import(KeepingPictures(std::move(program), std::move(pictureFolder)))
{
    connect(&m_import, &ModelImport::Finished, this, &ModelOpener::Conclude);
}

ModelOpener::~ModelOpener()
{
    delete m_progress;
}

void ModelOpener::Open(const QString& file)
{
    if (m_import.Running()) {
        const QSignalBlocker quiet(&m_import);
        m_import.Cancel();
    }
    m_file = QFileInfo(file).absoluteFilePath();
    ShowProgress();
    m_import.Start(m_file);
}

void ModelOpener::ShowProgress()
{
    delete m_progress;
    m_progress = new WaitDialog(tr("Reading %1...").arg(QFileInfo(m_file).fileName()), &m_window);
    m_progress->setValue(0);
    connect(m_progress, &QProgressDialog::canceled, &m_import, &ModelImport::Cancel);
}

void ModelOpener::Conclude(const ImportOutcome& outcome)
{
    if (m_progress != nullptr) {
        m_progress->disconnect(&m_import);
        // Its timer would show it over the box that tells of a refused file.
        m_progress->reset();
        m_progress->hide();
        m_progress->deleteLater();
        m_progress = nullptr;
    }
    if (outcome.model) {
        Q_EMIT Opened(m_file, *outcome.model);
    } else if (outcome.failure == ImportFailure::Cancelled) {
        Q_EMIT Cancelled(m_file);
    } else {
        Q_EMIT Refused(m_file, outcome.message);
    }
}

}  // namespace studio
