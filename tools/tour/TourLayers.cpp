#include "TourLayers.h"

#include "PluginFolder.h"
#include "PluginTextures.h"
#include "RenderService.h"
#include "TextureCache.h"
#include "TourPictures.h"
#include "TourStudio.h"
#include "ViewportWidget.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTabBar>
#include <QUrl>

#include <array>

namespace studio {
namespace {

struct Step {
    int tab;
    QString TourPictures::*picture;
    const char* name;
};

constexpr std::array kSteps{
    Step{2, &TourPictures::tiles, "primary-texture"},
    Step{5, &TourPictures::grooves, "bump-map"},
    Step{6, &TourPictures::polish, "specular-map"},
    Step{7, &TourPictures::surroundings, "environment-map"},
    Step{3, &TourPictures::leaves, "overlay-texture"},
    Step{4, &TourPictures::fade, "alpha-map"},
};

/// As a user does it: with the mouse, from a file manager.
void DropOn(QTabBar& tabs, int tab, const QString& file)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    const QPoint at = tabs.tabRect(tab - 1).center();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&tabs, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&tabs, &drop);
    QCoreApplication::processEvents();
}

void Put(TourStudio& studio, const Step& step, const QString& file)
{
    // Read here, so that the very next picture shows it.
    (void)studio.Host().Rendering().Textures().Await(file.toStdString());
    DropOn(studio.Guide().Find<QTabBar>("tabChannels"), step.tab, file);
}

void ShowWraps(TourStudio& studio)
{
    struct Wrap {
        const char* button;
        const char* name;
    };
    // The vase comes with coordinates of its own; a wrap other than the chosen one replaces them.
    constexpr std::array kWraps{Wrap{"optWrapType_1", "flat-wrap"},
                                Wrap{"optWrapType_2", "cylindrical-wrap"},
                                Wrap{"optWrapType_0", "spherical-wrap"}};
    for (const Wrap& wrap : kWraps) {
        studio.Guide().Press(wrap.button);
        studio.Guide().Picture(QLatin1String(wrap.name));
    }
}

}  // namespace

void ShowLayers(TourStudio& studio)
{
    const TourPictures pictures = PaintTourPictures(studio.Folder());
    studio.ClickShape("Vase");
    studio.Guide().Choose("cboColor", QStringLiteral("White"));
    for (const Step& step : kSteps) {
        Put(studio, step, pictures.*step.picture);
        studio.Guide().Picture(QLatin1String(step.name));
        if (step.tab == 2) {
            ShowWraps(studio);
        }
    }
    Expect(studio.ShapeNamed("Vase").Material().Textures.alpha == pictures.fade.toStdString(),
           QStringLiteral("The textures did not reach the vase."));
}

void ShowPlugins(TourStudio& studio)
{
    studio.ClickShape("Vase");
    studio.Guide().Choose("cboColor", QStringLiteral("White"));
    const auto names = studio.Host().Plugins().Names();
    Expect(!names.empty(), QStringLiteral("No plug-in was found."));
    for (const std::string& name : names) {
        studio.Guide().Choose("cboPlugin", QString::fromStdString(name));
        Expect(studio.ShapeNamed("Vase").Material().Plugin == name,
               QStringLiteral("The plug-in did not reach the vase."));
        const CorvexDB::udtMaterial& material = studio.ShapeNamed("Vase").Material();
        // The picture is to show the texture at full size.
        (void)studio.Host().PluginPictures().Produce(name, material.PluginParameters);
        studio.Window().Viewport().Draw();
        studio.Guide().Picture(
            QStringLiteral("plug-in-%1")
                .arg(QString::fromStdString(name).toLower().replace(u' ', u'-')));
    }
}

}  // namespace studio
