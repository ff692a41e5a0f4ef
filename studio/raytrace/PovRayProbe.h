#pragma once

#include "studio/raytrace/RaytraceRun.h"

#include <QObject>

class QLabel;
class QLineEdit;
class QPushButton;

namespace studio {

/// Says, as the user types, which POV-Ray will be used, and renders a small picture with it on
/// demand, so that he sees whether it works.
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
    void ShowProgram();
    void Test();

    Controls m_controls;
    RaytraceRun m_run;
};

}  // namespace studio
