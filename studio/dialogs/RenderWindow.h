#pragma once

#include "RaytraceRun.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace studio {

/// Shows a picture while a raytracer makes it, and keeps it for saving. Closing it ends a run that
/// is still going.
class RenderWindow : public QDialog {
    Q_OBJECT

public:
    /// They outlive it.
    explicit RenderWindow(CorvexMaterial::ProcessStarter& processes, QWidget* parent = nullptr);

    /// Something to look at until there is a picture, shown dimmed.
    void ShowMeanwhile(const QPixmap& picture);
    /// Errors: FileFailed.
    void Start(const RaytracerProgram& program, const RaytraceScene& scene,
               const RaytraceImages::Lookup& textures, int antialias);
    /// Where saving begins; `FolderChosen` tells of another.
    void SetFolder(const QString& folder) { m_folder = folder; }
    /// Errors: FileFailed.
    void SaveTo(const QString& file) const;

Q_SIGNALS:
    void Ended(const QString& message);  ///< empty when there is a picture
    void FolderChosen(const QString& folder);

private:
    void CancelOrClose();
    void ShowPicture(const QImage& picture);
    void ShowFailure(const QString& message);
    void ChooseFile();

    RaytraceRun* m_run;
    QLabel* m_picture;
    QLabel* m_status;
    QLabel* m_losses;  ///< what the picture goes without
    QProgressBar* m_progress;
    QPushButton* m_save;
    QPushButton* m_cancel;
    QImage m_result;
    QString m_folder;
};

}  // namespace studio
