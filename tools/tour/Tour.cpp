#include "Tour.h"

#include "TemporaryFolder.h"

#include "TourLayers.h"
#include "TourLibraries.h"
#include "TourStudio.h"

#include <QDir>
#include <QDockWidget>
#include <QProcess>

#include <array>

namespace studio {
namespace {

constexpr CorvexMaterial::Colour kBronze = CorvexMaterial::MakeColour({140, 120, 36});

void ShowStart(TourStudio& studio)
{
    studio.AwaitTextures();
    studio.Guide().Picture(QStringLiteral("default-scene"));
    studio.OpenModel(studio.Model());
    studio.Guide().Picture(QStringLiteral("model-opened"));
}

void EditVase(TourStudio& studio)
{
    studio.ClickShape("Vase");
    studio.Guide().Picture(QStringLiteral("vase-selected"));
    studio.Guide().Choose("cboColor", QStringLiteral("Bronze"));
    Expect(studio.ShapeNamed("Vase").Material().Color == kBronze,
           QStringLiteral("The vase did not become bronze."));
    studio.Guide().Picture(QStringLiteral("bronze"));

    studio.Guide().Type("txtAmbient", QStringLiteral("90"));
    studio.Guide().Type("txtSpecular", QStringLiteral("80"));
    const CorvexDB::udtMaterial& material = studio.ShapeNamed("Vase").Material();
    Expect(material.Ambient == 90 && material.Specular == 80,
           QStringLiteral("The typed amounts did not reach the vase."));
    studio.Guide().Picture(QStringLiteral("ambient-and-specular-typed"));
}

void EditSides(TourStudio& studio)
{
    studio.Guide().Press("chkDoubleSided");
    Expect(studio.ShapeNamed("Vase").Material().DoubleSided,
           QStringLiteral("The vase did not become double-sided."));
    studio.Guide().Choose("cboAlphaTest", QStringLiteral("Greater"));
    studio.Guide().Type("txtAlphaTestReference", QStringLiteral("128"));
    const CorvexDB::udtMaterial& material = studio.ShapeNamed("Vase").Material();
    Expect(material.AlphaTest == 4 && material.AlphaTestReference == 128,
           QStringLiteral("The alpha test did not reach the vase."));
    studio.Guide().Picture(QStringLiteral("double-sided-and-alpha-test"));
    studio.Guide().Type("txtTransparency", QStringLiteral("35"));
    studio.Guide().Picture(QStringLiteral("transparency"));
}

void ChoosePrimitive(TourStudio& studio)
{
    // The picker waits for the user; whatever answers it has to be under way before it opens.
    QTimer::singleShot(0, &studio.Window(), [&studio] {
        QWidget* picker = QApplication::activeModalWidget();
        if (picker == nullptr) {
            return;
        }
        auto* torus = picker->findChild<QAbstractButton*>(QStringLiteral("cmdPrimitive_3"));
        studio.Guide().PictureOf(*picker, QStringLiteral("primitive-picker"));
        if (torus != nullptr) {
            torus->click();
        }
        picker->close();
    });
    studio.Guide().Press("cmdPreviewPrimitive");
    std::int32_t primitive = 0;
    studio.Window().Panel().get_lPreviewPrimitive(primitive);
    Expect(primitive == 3, QStringLiteral("The preview does not show the torus."));
    studio.Guide().Picture(QStringLiteral("torus-preview"));
}

void EditSeveral(TourStudio& studio)
{
    studio.ClickShape("Ball");
    studio.ClickShape("Apple", Qt::ControlModifier);
    studio.Guide().Choose("cboColor", QStringLiteral("Steel Blue"));
    Expect(studio.ShapeNamed("Ball").Material().Color ==
               studio.ShapeNamed("Apple").Material().Color,
           QStringLiteral("The two selected shapes differ."));
    studio.Guide().Picture(QStringLiteral("two-shapes-at-once"));
}

void UndoAndRedo(TourStudio& studio)
{
    QUndoStack& history = studio.Window().History();
    const CorvexDB::udtMaterial edited = studio.ShapeNamed("Vase").Material();
    while (history.canUndo()) {
        history.undo();
    }
    Expect(studio.ShapeNamed("Vase").Material().Color != kBronze,
           QStringLiteral("Undo left the vase bronze."));
    studio.Guide().Picture(QStringLiteral("everything-undone"));
    while (history.canRedo()) {
        history.redo();
    }
    Expect(studio.ShapeNamed("Vase").Material() == edited,
           QStringLiteral("Redo did not bring the vase back."));
    studio.Guide().Picture(QStringLiteral("everything-redone"));
}

void NarrowDock(TourStudio& studio)
{
    studio.Window().resize(900, 640);
    studio.Window().resizeDocks({&studio.Window().Dock()}, {1}, Qt::Horizontal);
    studio.Guide().Picture(QStringLiteral("narrow-dock"));
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
    studio.Window().resize(1000, 700);
    studio.OpenModel(studio.Model());
    studio.ClickShape("Bowl");
    studio.Guide().Choose("cboColor", QStringLiteral("Bronze"));
    studio.Guide().Picture(QStringLiteral("at-200-per-cent"));
}

void LayersOfModel(TourStudio& studio)
{
    studio.OpenModel(studio.Model());
    ShowLayers(studio);
}

void PluginsOnModel(TourStudio& studio)
{
    studio.OpenModel(studio.Model());
    ShowPlugins(studio);
}

void LibrariesOnModel(TourStudio& studio)
{
    studio.OpenModel(studio.Model());
    ShowLibraries(studio);
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
    Chapter{"layers", "1", 31, LayersOfModel},
    Chapter{"plug-ins", "1", 51, PluginsOnModel},
    Chapter{"libraries", "1", 61, LibrariesOnModel},
};

void RunChapter(const Chapter& chapter, const TourRequest& request)
{
    const QString folder = QDir(request.folder).absolutePath();
    Expect(QDir().mkpath(folder), QStringLiteral("%1 cannot be created.").arg(folder));
    TourStudio studio(folder, chapter.firstPicture);
    chapter.run(studio);
    if (!request.model.isEmpty()) {
        studio.OpenModel(request.model);
        studio.Guide().Picture(QStringLiteral("your-model"));
    }
    const QString trouble = studio.TroubleTold();
    Expect(trouble.isEmpty(), trouble);
    studio.Window().QuitUnasked();
    studio.Window().close();
}

// A scale holds for a whole process, so each chapter is one.
void RunInProcess(const Chapter& chapter, const TourRequest& request)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QLatin1String(chapter.scale));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    QStringList arguments{request.folder, QStringLiteral("--chapter"), QLatin1String(chapter.name)};
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
    const CorvexMaterial::TemporaryFolder settings("tour");
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(settings.Path()));
    try {
        RunAsAsked(request);
    } catch (const std::runtime_error& failure) {
        return QString::fromStdString(failure.what());
    }
    return std::nullopt;
}

}  // namespace studio
