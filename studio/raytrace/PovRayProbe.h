#pragma once

#include "studio/raytrace/RaytraceRun.h"

#include <QObject>
#include <QTimer>

class QLabel;
class QLineEdit;
class QPushButton;

namespace studio {

/// Says, as the user types, which POV-Ray will be used, and renders a small picture on demand with
/// the program that the field names and no other, so that he sees whether it works. A test can be
/// cancelled, and ends by itself when nothing comes of it.
class PovRayProbe : public QObject {
    Q_OBJECT

public:
    struct Controls {
        QLineEdit& program;  ///< empty: the system's
        QPushButton& test;
        QLabel& picture;
        QLabel& status;
    };

    /// The controls outlive this object.
    explicit PovRayProbe(const Controls& controls, QObject* parent);

Q_SIGNALS:
    void Tested();

private:
    void FollowText();
    void ShowProgram();
    void Test();
    void End(const QString& why);
    void Conclude(const QString& outcome);
    [[nodiscard]] QString Program() const;

    Controls m_controls;
    RaytraceRun m_run;
    QTimer m_limit;
    QString m_ended;  ///< why a test was ended; empty when the field names another program by now
};

}  // namespace studio
