#pragma once

#include "RaytraceRun.h"
#include "WrappedLabel.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

namespace studio {

/// A field for the program of one raytracer. It says, as the user types, which program will be
/// used, and renders a small picture on demand with the program that it names and no other, so that
/// he sees whether it works. A test can be cancelled, and ends by itself when nothing comes of it.
class RaytracerField : public QWidget {
    Q_OBJECT

public:
    /// Writer and processes outlive this object.
    RaytracerField(const SceneWriter& writer, CorvexMaterial::ProcessStarter& processes,
                   const QString& program, QWidget* parent);

    [[nodiscard]] const CorvexMaterial::RaytracerRow& Raytracer() const
    {
        return *m_writer.raytracer;
    }
    /// As typed; empty for the system's.
    [[nodiscard]] QString Text() const { return m_program.text().trimmed(); }

private:
    void NameControls();
    void Arrange();
    void Choose();
    void FollowText();
    void ShowProgram();
    [[nodiscard]] QString StatusText(const QString& systems) const;
    void Test();
    void End(const QString& why);
    void Conclude(const QString& outcome);
    [[nodiscard]] QString Program() const;

    const SceneWriter& m_writer;
    QLineEdit m_program;
    QPushButton m_choose;
    QPushButton m_test;
    QLabel m_picture;
    WrappedLabel m_status;
    RaytraceRun m_run;
    QTimer m_limit;
    QString m_ended;  ///< why a test was ended; empty when the field names another program by now
};

}  // namespace studio
