// A complete host in one window: a shape on the left, the material editor on the right.
//
//   minimal_host                  opens the window
//   minimal_host --picture FILE   writes a picture of the window and ends

#include "Services.h"
#include "Swatch.h"

#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/QtPlatform.h>

#include <QApplication>
#include <QImageReader>
#include <QLabel>
#include <QMainWindow>
#include <QScrollArea>
#include <QSplitter>
#include <QStatusBar>

#include <iostream>

using CorvexMaterial::Material;

namespace {

/// Of a picture that can be read: the control has brought the readers for tga, pcx and dds along.
QString Described(const std::string& texture)
{
    const QSize size =
        texture.empty() ? QSize() : QImageReader(QString::fromStdString(texture)).size();
    return size.isValid() ? QString(", texture %1 x %2").arg(size.width()).arg(size.height())
                          : QString();
}

QString Described(const CorvexDB::udtMaterial& material)
{
    const CorvexMaterial::ColourBytes colour = CorvexMaterial::BytesOf(material.Color);
    return QString("red %1, green %2, blue %3, ambient %4 %")
               .arg(colour.red)
               .arg(colour.green)
               .arg(colour.blue)
               .arg(material.Ambient) +
           Described(material.Textures.primary);
}

int WritePicture(QMainWindow& window, const QString& path)
{
    QApplication::processEvents();
    std::cout << window.statusBar()->currentMessage().toStdString() << std::endl;
    return window.grab().save(path) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();

    // What the control calls outlives it, so the window that owns the control comes last.
    MinimalHost host;
    CorvexMaterial::QtPlatform platform;
    const auto shape = std::make_shared<SwatchShape>();  // the host's own scene, always selected
    QMainWindow window;
    platform.SetDialogParent(&window);
    auto* const material = new Material(host.Interfaces(), platform.Get(), nullptr);
    auto* const view = new SwatchViewport(nullptr);
    view->Scene().ShowShape(shape);

    // Every edit ends in MaterialChanged: put the material on the selection.
    QObject::connect(material, &Material::MaterialChanged, view, [&] {
        material->ApplyShapeMaterial(view->Scene(), *shape, false, nullptr, nullptr, {}, {}, false,
                                     {}, {});
        view->Draw();
        window.statusBar()->showMessage(Described(shape->Material()));
    });
    QObject::connect(
        material, &Material::evtReqWarn, view,
        [&](const QString&, const QString& warning) { window.statusBar()->showMessage(warning); });

    QObject::connect(&application, &QApplication::aboutToQuit, material,
                     [&] { material->SaveStatus(); });

    material->SetSceneDetails(host.Scenes());
    material->InitializeMaterialPreviewScene();
    material->LoadSavedStatus();

    auto* const panel = new QScrollArea;
    panel->setWidgetResizable(true);
    panel->setWidget(material);
    auto* const splitter = new QSplitter(&window);
    splitter->addWidget(view);
    splitter->addWidget(panel);
    splitter->setSizes({400, 500});
    window.setCentralWidget(splitter);
    window.resize(900, 700);
    window.show();
    return arguments.value(1) == "--picture" ? WritePicture(window, arguments.value(2))
                                             : QApplication::exec();
}
