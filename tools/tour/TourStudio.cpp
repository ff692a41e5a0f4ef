#include "TourStudio.h"

#include "FileWriting.h"
#include "RenderService.h"
#include "ShippedLibraries.h"
#include "TextureCache.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/TextureLayers.h>

#include <QFile>

#include <algorithm>

namespace studio {
namespace {

CorvexMaterial::Platform WithPrompts(const CorvexMaterial::Platform& desktop,
                                     CorvexMaterial::Prompts& prompts)
{
    return {desktop.settings,       prompts,         desktop.choosers,     desktop.processes,
            desktop.temporaryFiles, desktop.library, desktop.imageFormats, desktop.libraryFiles};
}

StudioProfile ProfileWithLibraries(const QString& folder)
{
    const StudioProfile profile = ProfileIn(folder);
    const QStringList problems = DeliverLibraries(ShippedLibraryFolder(), profile.dataFolder);
    Expect(problems.isEmpty(), problems.join(u' '));
    return profile;
}

QPoint PointOf(const ViewportWidget& viewport, const QVector3D& world)
{
    const QSizeF size = viewport.size();
    const Camera& camera = viewport.Camera();
    const QVector3D clip = (camera.Projection(size, {}) * camera.View()).map(world);
    return QPointF((clip.x() + 1.0) / 2.0 * size.width(), (1.0 - clip.y()) / 2.0 * size.height())
        .toPoint();
}

}  // namespace

void TourPrompts::Show(const CorvexMaterial::Message& message)
{
    m_texts += QString::fromStdString(message.text) + u' ';
}

bool TourPrompts::AskYesNo(const CorvexMaterial::Message& question)
{
    Show(question);
    return false;
}

TourStudio::TourStudio(const QString& pictures, int firstNumber)
    : m_host(ProfileWithLibraries(m_folder.path()), m_desktop.Get().settings,
             m_desktop.Get().processes),
      m_platform(WithPrompts(m_desktop.Get(), m_prompts)), m_window(m_host, m_platform),
      m_guide(m_window, pictures, firstNumber)
{
    m_window.resize(1280, 860);
    m_window.show();
}

QString TourStudio::Model() const
{
    for (const char* name : {"still-life.obj", "still-life.mtl"}) {
        QFile source(QStringLiteral(":/studio/%1").arg(QLatin1String(name)));
        Expect(source.open(QIODevice::ReadOnly), source.errorString());
        CorvexMaterial::WriteFile(m_folder.filePath(QLatin1String(name)).toStdString(),
                                  source.readAll(), CorvexMaterial::Lifetime::Temporary);
    }
    return m_folder.filePath(QStringLiteral("still-life.obj"));
}

const StudioShape& TourStudio::ShapeNamed(const char* name) const
{
    const auto& shapes = m_window.Scene().All();
    const auto found =
        std::ranges::find_if(shapes, [name](const auto& shape) { return shape->Name() == name; });
    Expect(found != shapes.end(), QStringLiteral("There is no shape %1.").arg(QLatin1String(name)));
    return **found;
}

void TourStudio::ClickShape(const char* name, Qt::KeyboardModifiers modifiers)
{
    const StudioShape& shape = ShapeNamed(name);
    ViewportWidget& viewport = m_window.Viewport();
    TourGuide::ClickAt(viewport, PointOf(viewport, WorldBounds(shape.Item()).Centre()), modifiers);
    Expect(m_window.Selected().Latest().get() == &shape,
           QStringLiteral("A click on %1 does not select it.").arg(QLatin1String(name)));
}

void TourStudio::AwaitTextures()
{
    for (const auto& shape : m_window.Scene().All()) {
        for (const CorvexMaterial::TextureLayerRow& layer : CorvexMaterial::kTextureLayers) {
            const std::string& file = shape->Material().Textures.*layer.file;
            if (!file.empty()) {
                (void)m_host.Rendering().Textures().Await(file);
            }
        }
    }
    m_window.Viewport().Draw();
}

void TourStudio::OpenModel(const QString& file)
{
    QObject scope;
    QString refusal;
    TourGuide::Await(
        [&](const std::function<void()>& arrived) {
            QObject::connect(&m_window, &MainWindow::SceneOpened, &scope, arrived);
            QObject::connect(&m_window, &MainWindow::SceneRefused, &scope,
                             [&refusal, arrived](const QString& message) {
                                 refusal = message;
                                 arrived();
                             });
            m_window.OpenModel(file);
        },
        QStringLiteral("%1 is not read.").arg(file));
    Expect(refusal.isEmpty(), refusal);
}

}  // namespace studio
