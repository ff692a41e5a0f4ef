#include "studio/raytrace/PovRayProbe.h"

#include "host/Status.h"
#include "studio/raytrace/RaytracerPrograms.h"
#include "studio/scene/ParametricMesh.h"

#include <QLabel>
#include <QLineEdit>
#include <QPixmap>
#include <QPushButton>

namespace studio {
namespace {

RaytraceScene SampleScene()
{
    auto material = std::make_shared<CorvexDB::udtMaterial>();
    material->Color = CorvexMaterial::MakeColour({60, 120, 200});
    material->Specular = 80;
    FrameItem item;
    item.mesh = SphereMesh(1.0F);
    item.material = std::move(material);
    RaytraceScene scene;
    scene.frame.items.push_back(std::move(item));
    scene.frame.camera = Framed(scene.frame.camera, scene.frame.items);
    scene.frame.width = 64;
    scene.frame.height = 64;
    return scene;
}

}  // namespace

PovRayProbe::PovRayProbe(const Controls& controls, QObject* parent)
    : QObject(parent), m_controls(controls)
{
    connect(&m_controls.program, &QLineEdit::textChanged, this, &PovRayProbe::ShowProgram);
    connect(&m_controls.test, &QPushButton::clicked, this, &PovRayProbe::Test);
    connect(&m_run, &RaytraceRun::Finished, this, [this](const QImage& picture) {
        m_controls.picture.setPixmap(QPixmap::fromImage(picture));
        m_controls.status.setText(tr("POV-Ray works."));
        m_controls.test.setEnabled(true);
        Q_EMIT Tested();
    });
    connect(&m_run, &RaytraceRun::Failed, this, [this](const QString& message) {
        m_controls.status.setText(message);
        m_controls.test.setEnabled(true);
        Q_EMIT Tested();
    });
    ShowProgram();
}

void PovRayProbe::ShowProgram()
{
    const QString typed = m_controls.program.text().trimmed();
    const QString found = FindPovRay(typed);
    const QString systems = FindPovRay({});
    m_controls.program.setPlaceholderText(systems.isEmpty() ? tr("not found") : systems);
    m_controls.picture.clear();
    m_controls.test.setEnabled(!found.isEmpty() && !m_run.IsRunning());
    if (found.isEmpty()) {
        m_controls.status.setText(
            tr("No program named povray is installed where programs are looked for. Install "
               "POV-Ray 3.7, or choose its program."));
    } else if (!typed.isEmpty() && found == systems && typed != systems) {
        m_controls.status.setText(
            tr("%1 is no program that can be run; %2 is used.").arg(typed, systems));
    } else if (FindPovRayLauncher().isEmpty()) {
        m_controls.status.setText(
            tr("The studio's own corvex-povray is missing beside its program; the panel cannot "
               "start POV-Ray without it."));
    } else {
        m_controls.status.setText(tr("Uses %1.").arg(found));
    }
}

void PovRayProbe::Test()
{
    m_controls.test.setEnabled(false);
    m_controls.status.setText(tr("Rendering a small picture."));
    try {
        m_run.Start({FindPovRay(m_controls.program.text().trimmed())}, SampleScene(), {}, 1);
    } catch (const CorvexMaterial::Error& error) {
        m_controls.status.setText(QString::fromStdString(error.what()));
        m_controls.test.setEnabled(true);
    }
}

}  // namespace studio
