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

constexpr int kLimitMilliseconds = 20000;

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
    m_limit.setObjectName(QStringLiteral("testLimit"));
    m_limit.setSingleShot(true);
    m_limit.setParent(this);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        End(tr("No picture came within %1 seconds.").arg(kLimitMilliseconds / 1000));
    });
    connect(&m_controls.program, &QLineEdit::textChanged, this, &PovRayProbe::FollowText);
    connect(&m_controls.test, &QPushButton::clicked, this, &PovRayProbe::Test);
    connect(&m_run, &RaytraceRun::Finished, this, [this](const QImage& picture) {
        m_controls.picture.setPixmap(QPixmap::fromImage(picture));
        Conclude(tr("POV-Ray works."));
    });
    connect(&m_run, &RaytraceRun::Failed, this,
            [this](const QString& message) { Conclude(message.isEmpty() ? m_ended : message); });
    ShowProgram();
}

QString PovRayProbe::Program() const
{
    const QString typed = m_controls.program.text().trimmed();
    return typed.isEmpty() ? FindPovRay({}) : NamedProgram(typed);
}

void PovRayProbe::FollowText()
{
    m_controls.picture.clear();
    if (m_run.IsRunning()) {
        End({});
    } else {
        ShowProgram();
    }
}

void PovRayProbe::ShowProgram()
{
    const QString typed = m_controls.program.text().trimmed();
    const QString systems = FindPovRay({});
    m_controls.program.setPlaceholderText(systems.isEmpty() ? tr("not found") : systems);
    m_controls.test.setEnabled(!Program().isEmpty());
    if (FindPovRay(typed).isEmpty()) {
        m_controls.status.setText(
            tr("No program named povray is installed where programs are looked for. Install "
               "POV-Ray 3.7, or choose its program."));
    } else if (Program().isEmpty()) {
        m_controls.status.setText(
            tr("%1 is no program that can be run; %2 is used instead.").arg(typed, systems));
    } else if (FindPovRayLauncher().isEmpty()) {
        m_controls.status.setText(
            tr("The studio's own corvex-povray is missing beside its program; the panel cannot "
               "start POV-Ray without it."));
    } else {
        m_controls.status.setText(tr("Uses %1.").arg(Program()));
    }
}

void PovRayProbe::Test()
{
    if (m_run.IsRunning()) {
        return End(tr("The test was cancelled."));
    }
    m_controls.picture.clear();
    m_controls.test.setText(tr("Canc&el"));
    m_controls.status.setText(tr("Rendering a small picture."));
    m_limit.start(kLimitMilliseconds);
    try {
        m_run.Start({Program()}, SampleScene(), {}, 1);
    } catch (const CorvexMaterial::Error& error) {
        Conclude(QString::fromStdString(error.what()));
    }
}

void PovRayProbe::End(const QString& why)
{
    m_ended = why;
    m_controls.test.setEnabled(false);  // until it has ended
    m_run.Cancel();
}

void PovRayProbe::Conclude(const QString& outcome)
{
    m_limit.stop();
    m_controls.test.setText(tr("T&est"));
    ShowProgram();
    if (!outcome.isEmpty()) {
        m_controls.status.setText(outcome);
    }
    Q_EMIT Tested();
}

}  // namespace studio
