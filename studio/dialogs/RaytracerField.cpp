#include "RaytracerField.h"

#include "ParametricMesh.h"
#include "RaytracerPrograms.h"
#include <CorvexMaterial/Status.h>

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPixmap>
#include <QVBoxLayout>

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

QString Shown(std::string_view text)
{
    return QString::fromUtf8(text);
}

}  // namespace

RaytracerField::RaytracerField(const SceneWriter& writer, CorvexMaterial::ProcessStarter& processes,
                               const QString& program, QWidget* parent)
    : QWidget(parent), m_writer(writer), m_program(program), m_choose(tr("Choose...")),
      m_test(tr("Test")), m_run(processes)
{
    NameControls();
    Arrange();
    m_limit.setSingleShot(true);
    m_limit.setParent(this);
    connect(&m_limit, &QTimer::timeout, this, [this] {
        End(tr("No picture came within %1 seconds.").arg(kLimitMilliseconds / 1000));
    });
    connect(&m_program, &QLineEdit::textChanged, this, &RaytracerField::FollowText);
    connect(&m_choose, &QPushButton::clicked, this, &RaytracerField::Choose);
    connect(&m_test, &QPushButton::clicked, this, &RaytracerField::Test);
    connect(&m_run, &RaytraceRun::Finished, this, [this](const QImage& picture) {
        m_picture.setPixmap(QPixmap::fromImage(picture));
        Conclude(tr("%1 works.").arg(Shown(Raytracer().name)));
    });
    connect(&m_run, &RaytraceRun::Failed, this,
            [this](const QString& message) { Conclude(message.isEmpty() ? m_ended : message); });
    ShowProgram();
}

void RaytracerField::NameControls()
{
    const QString word = Shown(Raytracer().word);
    const QString inName = word.left(1).toUpper() + word.mid(1);
    m_program.setAccessibleName(Shown(Raytracer().program.label).remove(u'&'));
    m_program.setObjectName(word + QStringLiteral("Program"));
    m_choose.setObjectName(QStringLiteral("choose") + inName);
    m_test.setObjectName(QStringLiteral("test") + inName);
    m_picture.setObjectName(word + QStringLiteral("Picture"));
    m_status.setObjectName(word + QStringLiteral("Status"));
    m_limit.setObjectName(QStringLiteral("testLimit"));
}

void RaytracerField::Arrange()
{
    auto* row = new QHBoxLayout;
    row->addWidget(&m_program);
    row->addWidget(&m_choose);
    row->addWidget(&m_test);
    auto* result = new QHBoxLayout;
    result->addWidget(&m_picture);
    result->addWidget(&m_status, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addLayout(row);
    layout->addLayout(result);
    setFocusProxy(&m_program);
}

void RaytracerField::Choose()
{
    const QString file =
        QFileDialog::getOpenFileName(this, Shown(Raytracer().program.noun), m_program.text());
    if (!file.isEmpty()) {
        m_program.setText(file);
    }
}

QString RaytracerField::Program() const
{
    return NamedProgram(Text().isEmpty() ? Shown(Raytracer().program.usualName) : Text());
}

void RaytracerField::FollowText()
{
    m_picture.clear();
    if (m_run.IsRunning()) {
        End({});
    } else {
        ShowProgram();
    }
}

void RaytracerField::ShowProgram()
{
    const QString systems = NamedProgram(Shown(Raytracer().program.usualName));
    m_program.setPlaceholderText(systems.isEmpty() ? tr("not found") : systems);
    m_test.setEnabled(!Program().isEmpty());
    m_status.setText(StatusText(systems));
}

QString RaytracerField::StatusText(const QString& systems) const
{
    const CorvexMaterial::ProgramFacts& facts = Raytracer().program;
    if (Program().isEmpty()) {
        if (!systems.isEmpty()) {
            return tr("%1 is no program that can be run; %2 is used instead.").arg(Text(), systems);
        }
        return facts.usualName.empty() && !Text().isEmpty()
                   ? tr("%1 is no program that can be run.").arg(Text())
               : facts.usualName.empty()
                   ? tr("No program is chosen.")
                   : tr("No program named %1 is installed where programs are looked for. Install "
                        "%2, or choose its program.")
                         .arg(Shown(facts.usualName), Shown(facts.noun));
    }
    if (!facts.launcher.empty() && FindLauncher(facts).isEmpty()) {
        return tr("The studio's own %1 is missing beside its program; the panel cannot start %2 "
                  "without it.")
            .arg(Shown(facts.launcher), Shown(Raytracer().name));
    }
    return tr("Uses %1.").arg(Program());
}

void RaytracerField::Test()
{
    if (m_run.IsRunning()) {
        return End(tr("The test was cancelled."));
    }
    m_picture.clear();
    m_test.setText(tr("Cancel"));
    m_status.setText(tr("Rendering a small picture."));
    m_limit.start(kLimitMilliseconds);
    try {
        m_run.Start({Program(), &m_writer}, SampleScene(), {}, 1);
    } catch (const CorvexMaterial::Error& error) {
        Conclude(QString::fromStdString(error.what()));
    }
}

void RaytracerField::End(const QString& why)
{
    m_ended = why;
    m_test.setEnabled(false);  // until it has ended
    m_run.Cancel();
}

void RaytracerField::Conclude(const QString& outcome)
{
    m_limit.stop();
    m_test.setText(tr("Test"));
    ShowProgram();
    if (!outcome.isEmpty()) {
        m_status.setText(outcome);
    }
}

}  // namespace studio
