// One edit of a user, from the edited widget to drawn pixels, against drawing the same frame alone.
// Both are measured turn by turn in one run, so that their ratio holds on a busy machine too.

#include "material/Material.h"
#include "platform/QtPlatform.h"
#include "studio/render/GlContext.h"
#include "studio/render/RenderService.h"
#include "studio/render/Renderer.h"
#include "studio/render/ViewportWidget.h"
#include "studio/scene/HostViewport.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/RecordingPlatform.h"

#include <QApplication>
#include <QEventLoop>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double MedianOf(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// A control whose preview is the real one; everything else of its host is in memory.
class PreviewedControl {
public:
    PreviewedControl()
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
    CorvexMaterial::QtPlatform realDesktop;
    studio::RenderService service;
    studio::HostViewportFactory viewports{service};
    studio::StudioSceneGraph graph;
    CorvexMaterial::Host host = HostWith(memory, viewports);
    CorvexMaterial::Platform platform{
        desktop.settings,       desktop.prompts,           desktop.choosers,    desktop.processes,
        desktop.temporaryFiles, realDesktop.Get().library, desktop.imageFormats};
    CorvexMaterial::Material control{host, platform, nullptr};
    studio::ViewportWidget* view = nullptr;

private:
    static CorvexMaterial::Host HostWith(CorvexTest::RecordingHost& memory,
                                         CorvexViewport::ViewportFactory& viewports)
    {
        return {memory.applicationState, memory.diagnostics,
                memory.graphics,         memory.materialLibrary,
                memory.textureLibrary,   memory.plugins,
                memory.customFields,     memory.raytrace,
                memory.exporter,         viewports,
                memory.editports,        memory.numbers};
    }
};

void EditToPixels(benchmark::State& state)
{
    PreviewedControl panel;
    auto* field = panel.control.findChild<QLineEdit*>("txtAmbient");
    studio::Renderer renderer(studio::MakeGlContextProvider()->Create());
    std::vector<double> bare;
    std::vector<double> edits;
    std::vector<double> handlers;  // until the edited widget's signal has returned
    int ambient = 0;
    for (auto _ : state) {
        const studio::Frame frame = panel.view->CurrentFrame();
        auto start = Clock::now();
        benchmark::DoNotOptimize(renderer.Draw(frame));
        bare.push_back(SecondsSince(start));

        start = Clock::now();
        field->setText(QString::number(++ambient % 100));
        handlers.push_back(SecondsSince(start));
        panel.WaitForPicture();
        edits.push_back(SecondsSince(start));
        state.SetIterationTime(edits.back());
        panel.log.Clear();
    }
    state.counters["bare_ms"] = 1000.0 * MedianOf(bare);
    state.counters["edit_ms"] = 1000.0 * MedianOf(edits);
    state.counters["handler_ms"] = 1000.0 * MedianOf(handlers);
    state.counters["edit_to_bare"] = MedianOf(edits) / MedianOf(bare);
}

BENCHMARK(EditToPixels)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(3.0);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
