#include "studio/app/Tour.h"

#include "studio/app/MainWindow.h"
#include "studio/app/StudioDesktop.h"
#include "studio/app/StudioHost.h"
#include "studio/app/TourGuide.h"
#include "studio/render/ViewportWidget.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>

namespace studio {
namespace {

constexpr CorvexMaterial::Colour kBronze = CorvexMaterial::MakeColour({140, 120, 36});

/// A message box would wait for ever where nobody sits; in a tour each is a failure.
class TourPrompts : public CorvexMaterial::Prompts {
public:
    void Show(const CorvexMaterial::Message& message) override { Keep(message); }
    bool AskYesNo(const CorvexMaterial::Message& question) override
    {
        Keep(question);
        return false;
    }
    [[nodiscard]] QString Taken() { return std::exchange(m_texts, {}); }

private:
    void Keep(const CorvexMaterial::Message& message)
    {
        m_texts += QString::fromStdString(message.text) + u' ';
    }

    QString m_texts;
};

/// The studio as the tour starts it: everything that it keeps lies in a temporary folder.
class TourStudio {
public:
    TourStudio(const QString& pictures, int firstNumber)
        : m_host(ProfileIn(m_folder.path()), m_desktop.Get().settings), m_platform(Platform()),
          window(m_host, m_platform), guide(window, pictures, firstNumber)
    {
        window.resize(1280, 860);
        window.show();
    }

    /// A copy of a model that is built in.
    [[nodiscard]] QString Model() const
    {
        for (const char* name : {"still-life.obj", "still-life.mtl"}) {
            QFile::copy(QStringLiteral(":/studio/%1").arg(QLatin1String(name)),
                        m_folder.filePath(QLatin1String(name)));
        }
        return m_folder.filePath(QStringLiteral("still-life.obj"));
    }

    [[nodiscard]] QString TroubleTold() { return m_prompts.Taken(); }

private:
    CorvexMaterial::Platform Platform()
    {
        CorvexMaterial::Platform& desktop = m_desktop.Get();
        return {desktop.settings,       m_prompts,       desktop.choosers,    desktop.processes,
                desktop.temporaryFiles, desktop.library, desktop.imageFormats};
    }

    QTemporaryDir m_folder;
    StudioDesktop m_desktop;
    TourPrompts m_prompts;
    StudioHost m_host;
    CorvexMaterial::Platform m_platform;

public:
    MainWindow window;
    TourGuide guide;
};

const StudioShape& ShapeNamed(TourStudio& studio, const char* name)
{
    const auto& shapes = studio.window.Scene().All();
    const auto found =
        std::ranges::find_if(shapes, [name](const auto& shape) { return shape->Name() == name; });
    Expect(found != shapes.end(), QStringLiteral("There is no shape %1.").arg(QLatin1String(name)));
    return **found;
}

QPoint PointOf(const ViewportWidget& viewport, const QVector3D& world)
{
    const QSizeF size = viewport.size();
    const Camera& camera = viewport.Camera();
    const QVector3D clip = (camera.Projection(size, {}) * camera.View()).map(world);
    return QPointF((clip.x() + 1.0) / 2.0 * size.width(), (1.0 - clip.y()) / 2.0 * size.height())
        .toPoint();
}

void ClickShape(TourStudio& studio, const char* name, Qt::KeyboardModifiers modifiers = {})
{
    const StudioShape& shape = ShapeNamed(studio, name);
    ViewportWidget& viewport = studio.window.Viewport();
    TourGuide::ClickAt(viewport, PointOf(viewport, WorldBounds(shape.Item()).Centre()), modifiers);
    const auto latest = studio.window.Selected().Latest();
    Expect(latest.get() == &shape,
           QStringLiteral("A click on %1 does not select it.").arg(QLatin1String(name)));
}

void OpenModel(TourStudio& studio, const QString& file)
{
    QObject scope;
    QString refusal;
    TourGuide::Await(
        [&](const std::function<void()>& arrived) {
            QObject::connect(&studio.window, &MainWindow::SceneOpened, &scope, arrived);
            QObject::connect(&studio.window, &MainWindow::SceneRefused, &scope,
                             [&refusal, arrived](const QString& message) {
                                 refusal = message;
                                 arrived();
                             });
            studio.window.OpenModel(file);
        },
        QStringLiteral("%1 is not read.").arg(file));
    Expect(refusal.isEmpty(), refusal);
}

void ShowStart(TourStudio& studio)
{
    studio.guide.Picture(QStringLiteral("default-scene"));
    OpenModel(studio, studio.Model());
    studio.guide.Picture(QStringLiteral("model-opened"));
}

void EditVase(TourStudio& studio)
{
    ClickShape(studio, "Vase");
    studio.guide.Picture(QStringLiteral("vase-selected"));
    studio.guide.Choose("cboColor", QStringLiteral("Bronze"));
    Expect(ShapeNamed(studio, "Vase").Material().Color == kBronze,
           QStringLiteral("The vase did not become bronze."));
    studio.guide.Picture(QStringLiteral("bronze"));

    studio.guide.Type("txtAmbient", QStringLiteral("90"));
    studio.guide.Type("txtSpecular", QStringLiteral("80"));
    const CorvexDB::udtMaterial& material = ShapeNamed(studio, "Vase").Material();
    Expect(material.Ambient == 90 && material.Specular == 80,
           QStringLiteral("The typed amounts did not reach the vase."));
    studio.guide.Picture(QStringLiteral("ambient-and-specular-typed"));
}

void EditSides(TourStudio& studio)
{
    studio.guide.Press("chkDoubleSided");
    Expect(ShapeNamed(studio, "Vase").Material().DoubleSided,
           QStringLiteral("The vase did not become double-sided."));
    studio.guide.Choose("cboAlphaTest", QStringLiteral("Greater"));
    studio.guide.Type("txtAlphaTestReference", QStringLiteral("128"));
    const CorvexDB::udtMaterial& material = ShapeNamed(studio, "Vase").Material();
    Expect(material.AlphaTest == 4 && material.AlphaTestReference == 128,
           QStringLiteral("The alpha test did not reach the vase."));
    studio.guide.Type("txtTransparency", QStringLiteral("35"));
    studio.guide.Picture(QStringLiteral("double-sided-alpha-test-transparency"));
}

void ChoosePrimitive(TourStudio& studio)
{
    // The picker waits for the user; whatever answers it has to be under way before it opens.
    QTimer::singleShot(0, &studio.window, [&studio] {
        QWidget* picker = QApplication::activeModalWidget();
        if (picker == nullptr) {
            return;
        }
        auto* torus = picker->findChild<QAbstractButton*>(QStringLiteral("cmdPrimitive_3"));
        studio.guide.PictureOf(*picker, QStringLiteral("primitive-picker"));
        if (torus != nullptr) {
            torus->click();
        }
        picker->close();
    });
    studio.guide.Press("cmdPreviewPrimitive");
    std::int32_t primitive = 0;
    studio.window.Panel().get_lPreviewPrimitive(primitive);
    Expect(primitive == 3, QStringLiteral("The preview does not show the torus."));
    studio.guide.Picture(QStringLiteral("torus-preview"));
}

void EditSeveral(TourStudio& studio)
{
    ClickShape(studio, "Ball");
    ClickShape(studio, "Apple", Qt::ControlModifier);
    studio.guide.Choose("cboColor", QStringLiteral("Steel Blue"));
    Expect(ShapeNamed(studio, "Ball").Material() == ShapeNamed(studio, "Apple").Material(),
           QStringLiteral("The two selected shapes differ."));
    studio.guide.Picture(QStringLiteral("two-shapes-at-once"));
}

void UndoAndRedo(TourStudio& studio)
{
    QUndoStack& history = studio.window.History();
    const CorvexDB::udtMaterial edited = ShapeNamed(studio, "Vase").Material();
    while (history.canUndo()) {
        history.undo();
    }
    Expect(ShapeNamed(studio, "Vase").Material().Color != kBronze,
           QStringLiteral("Undo left the vase bronze."));
    studio.guide.Picture(QStringLiteral("everything-undone"));
    while (history.canRedo()) {
        history.redo();
    }
    Expect(ShapeNamed(studio, "Vase").Material() == edited,
           QStringLiteral("Redo did not bring the vase back."));
    studio.guide.Picture(QStringLiteral("everything-redone"));
}

void NarrowDock(TourStudio& studio)
{
    studio.window.resize(900, 640);
    studio.window.resizeDocks({&studio.window.Dock()}, {1}, Qt::Horizontal);
    studio.guide.Picture(QStringLiteral("narrow-dock"));
}

void WholeTour(TourStudio& studio)
{
    ShowStart(studio);
    EditVase(studio);
    EditSides(studio);
    ChoosePrimitive(studio);
    EditSeveral(studio);
    UndoAndRedo(studio);
    NarrowDock(studio);
}

void LargeScale(TourStudio& studio)
{
    studio.window.resize(1000, 700);
    OpenModel(studio, studio.Model());
    ClickShape(studio, "Bowl");
    studio.guide.Choose("cboColor", QStringLiteral("Bronze"));
    studio.guide.Picture(QStringLiteral("at-200-per-cent"));
}

struct Chapter {
    const char* name;
    const char* scale;  ///< of the desktop
    int firstPicture;
    void (*run)(TourStudio&);
};

constexpr std::array kChapters{
    Chapter{"tour", "1", 1, WholeTour},
    Chapter{"large", "2", 21, LargeScale},
};

void RunChapter(const Chapter& chapter, const TourRequest& request)
{
    const QString folder = QDir(request.folder).absolutePath();
    Expect(QDir().mkpath(folder), QStringLiteral("%1 cannot be created.").arg(folder));
    TourStudio studio(folder, chapter.firstPicture);
    chapter.run(studio);
    if (!request.model.isEmpty()) {
        OpenModel(studio, request.model);
        studio.guide.Picture(QStringLiteral("your-model"));
    }
    const QString trouble = studio.TroubleTold();
    Expect(trouble.isEmpty(), trouble);
    studio.window.close();
}

// A scale holds for a whole process, so each chapter is one.
void RunInProcess(const Chapter& chapter, const TourRequest& request)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QLatin1String(chapter.scale));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    QStringList arguments{QStringLiteral("--tour"), request.folder, QStringLiteral("--chapter"),
                          QLatin1String(chapter.name)};
    if (!request.model.isEmpty()) {
        arguments << request.model;
    }
    process.start(QApplication::applicationFilePath(), arguments);
    const bool ended = process.waitForFinished(-1);
    Expect(ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
           QStringLiteral("The chapter \"%1\" failed.").arg(QLatin1String(chapter.name)));
}

void RunAsAsked(const TourRequest& request)
{
    bool found = request.chapter.isEmpty();
    for (const Chapter& chapter : kChapters) {
        if (request.chapter.isEmpty()) {
            RunInProcess(chapter, request);
        } else if (request.chapter == QLatin1String(chapter.name)) {
            RunChapter(chapter, request);
            found = true;
        }
    }
    Expect(found, QStringLiteral("There is no chapter \"%1\".").arg(request.chapter));
}

}  // namespace

std::optional<QString> RecordTour(const TourRequest& request)
{
    // The settings of the user who runs the tour are neither shown nor touched.
    const QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    try {
        RunAsAsked(request);
    } catch (const TourFailure& failure) {
        return QString::fromStdString(failure.what());
    }
    return std::nullopt;
}

}  // namespace studio
