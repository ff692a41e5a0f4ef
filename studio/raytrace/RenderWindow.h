#pragma once

#include "studio/raytrace/PovRayRun.h"

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace studio {

/// Shows a picture while POV-Ray makes it, and keeps it for saving. Closing it ends a
/// run that is still going.
class RenderWindow : public QDialog {
    Q_OBJECT

public:
    explicit RenderWindow(QWidget* parent = nullptr);

    /// Errors: FileFailed.
    void Start(const QString& program, const RaytraceScene& scene,
               const RaytraceImages::Lookup& textures, int antialias);
    /// Errors: FileFailed.
    void SaveTo(const QString& file) const;

Q_SIGNALS:
    void Ended(const QString& message);  ///< empty when there is a picture

private:
    void CancelOrClose();
    void ShowPicture(const QImage& picture);
    void ShowFailure(const QString& message);
    void ChooseFile();

    PovRayRun* m_run;
    QLabel* m_picture;
    QLabel* m_status;
    QProgressBar* m_progress;
    QPushButton* m_save;
    QPushButton* m_cancel;
    QImage m_result;
};

}  // namespace studio
