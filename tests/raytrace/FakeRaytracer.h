#pragma once

#include "ControlRig.h"
#include <CorvexMaterial/QtPlatform.h>

#include <QStringList>

namespace CorvexTest {

/// Really started scripts in place of a raytracer, with a temporary folder of its own whose name is
/// as awkward as a name may be.
class FakeRaytracer {
public:
    explicit FakeRaytracer(ControlRig& rig);
    ~FakeRaytracer();
    FakeRaytracer(const FakeRaytracer&) = delete;
    FakeRaytracer& operator=(const FakeRaytracer&) = delete;

    /// The shell commands run with $ini, $out (the image to be written) and $picture (a good one),
    /// in an empty folder that only this user can enter; `make WIDTH HEIGHT` prints other pictures.
    void Runs(const QString& commands);
    /// The same for a selected RenderMan renderer, with $scene in place of $ini.
    void RunsAsRenderMan(const QString& commands);
    [[nodiscard]] QString Folder() const { return m_folder; }
    /// What the jobs have left in the temporary folder.
    [[nodiscard]] QStringList Leftovers() const;

private:
    [[nodiscard]] std::string Script(const QString& opening, const QString& commands) const;

    QTemporaryDir m_dir;
    QString m_folder;
    QByteArray m_oldTemp;
    CorvexMaterial::QtPlatform m_desktop;
    ControlRig& m_rig;
};

}  // namespace CorvexTest
