#pragma once

#include "HostViewport.h"
#include "RecordingHost.h"
#include "RecordingPlatform.h"
#include "RenderService.h"
#include "Timing.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/Material.h>
#include <CorvexMaterial/QtPlatform.h>

#include <QEventLoop>

namespace CorvexBenchmark {

/// A control whose preview is the real one; everything else of its host is in memory.
class PreviewedControl {
public:
    /// The table outlives this object; null means the one in memory.
    explicit PreviewedControl(CorvexDB::PluginTable* table = nullptr)
        : plugins(table != nullptr ? *table : memory.plugins)
    {
        control.SetSceneDetails(graph);
        control.InitializeMaterialPreviewScene();
        control.LoadSavedStatus();
        control.put_bMaterialPanel(true);
        view = control.findChild<studio::ViewportWidget*>();
        view->setFixedSize(256, 256);
        control.show();
        WaitForPicture();
    }

    void WaitForPicture()
    {
        QEventLoop loop;
        QObject::connect(view, &studio::ViewportWidget::pictureShown, &loop, &QEventLoop::quit);
        QObject::connect(view, &studio::ViewportWidget::failed, &loop, &QEventLoop::quit);
        loop.exec();
    }

    CorvexTest::CallLog log;
    CorvexTest::RecordingHost memory{log};
    CorvexTest::RecordingPlatform desktop{log};
    CorvexDB::PluginTable& plugins;
    CorvexMaterial::QtPlatform realDesktop;
    studio::RenderService service;
    studio::HostViewportFactory viewports{service};
    studio::StudioSceneGraph graph;
    CorvexMaterial::Host host = HostWith(memory, viewports, plugins);
    CorvexMaterial::Platform platform{desktop.settings,       desktop.prompts,
                                      desktop.choosers,       desktop.processes,
                                      desktop.temporaryFiles, realDesktop.Get().library,
                                      desktop.imageFormats,   desktop.libraryFiles};
    CorvexMaterial::Material control{host, platform, nullptr};
    studio::ViewportWidget* view = nullptr;

private:
    static CorvexMaterial::Host HostWith(CorvexTest::RecordingHost& memory,
                                         CorvexViewport::ViewportFactory& viewports,
                                         CorvexDB::PluginTable& plugins)
    {
        return {memory.applicationState, memory.diagnostics,
                memory.graphics,         memory.materialLibrary,
                memory.textureLibrary,   plugins,
                memory.customFields,     memory.raytrace,
                memory.exporter,         viewports,
                memory.editports,        memory.numbers};
    }
};

}  // namespace CorvexBenchmark
