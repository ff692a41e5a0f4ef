// Dragging a slider of a plug-in material: from the changed slider to the picture with the texture
// of the new values, which the plug-in has to draw first.

#include "PluginFolder.h"
#include "PluginMaterials.h"
#include "PluginTextures.h"
#include "PreviewedControl.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QSlider>

#include <benchmark/benchmark.h>

#include <optional>

namespace {

using CorvexBenchmark::Clock;
using CorvexBenchmark::MedianOf;
using CorvexBenchmark::PreviewedControl;
using CorvexBenchmark::SecondsSince;

/// The shipped plug-ins in a control; their textures have one size.
class PluginControl {
public:
    PluginControl(const QString& plugin, int side) : textures(folder, {side, side})
    {
        panel.service.SetCompletion([this](studio::Frame& frame) { materials.Complete(frame); });
        QObject::connect(&textures, &studio::PluginTextures::Ready, panel.view,
                         [this] { isDrawn = true; });
        for (const std::string& name : folder.Names()) {
            panel.control.AddToPluginList(name);
        }
        auto* list = panel.control.findChild<QComboBox*>("cboPlugin");
        list->setCurrentIndex(list->findText(plugin));
        WaitForTexture();
        for (QSlider* candidate : panel.control.findChildren<QSlider*>()) {
            if (!candidate->isHidden() &&
                candidate->objectName().startsWith(QLatin1String("sldParameter"))) {
                sliders.push_back(candidate);
            }
        }
    }

    /// Until a picture is shown that was asked for after the plug-in had drawn.
    void WaitForTexture()
    {
        QEventLoop loop;
        QObject::connect(&textures, &studio::PluginTextures::Ready, &loop, &QEventLoop::quit);
        if (!isDrawn) {
            loop.exec();
        }
        isDrawn = false;
        panel.view->Draw();
        panel.WaitForPicture();
    }

    studio::PluginFolder folder{{QStringLiteral(SHIPPED_PLUGINS)}};
    studio::PluginTextures textures;
    studio::PluginMaterials materials{textures};
    PreviewedControl panel{&folder};
    std::vector<QSlider*> sliders;
    bool isDrawn = false;
};

// Few enough for values that were never drawn before.
constexpr int kDrags = 60;

// The argument is the side of the plug-in's texture.
void DragPluginSlider(benchmark::State& state)
{
    PluginControl plugin(QStringLiteral("Brick"), static_cast<int>(state.range(0)));
    if (plugin.sliders.size() < 2) {
        state.SkipWithError("the plug-in shows no two sliders");
        return;
    }
    QSlider& dragged = *plugin.sliders[0];
    QSlider& other = *plugin.sliders[1];
    const int steps = dragged.maximum() - dragged.minimum();
    int step = 0;
    std::vector<double> seconds;
    for (auto _ : state) {
        if (++step % steps == 0) {
            // Values that were drawn before would come from the cache.
            const QSignalBlocker quiet(other);
            other.setValue(other.minimum() + step / steps);
        }
        plugin.isDrawn = false;
        const auto start = Clock::now();
        dragged.setValue(dragged.minimum() + step % steps);
        plugin.WaitForTexture();
        seconds.push_back(SecondsSince(start));
        state.SetIterationTime(seconds.back());
        plugin.panel.log.Clear();
    }
    state.counters["frames_per_second"] = 1.0 / MedianOf(seconds);
}

BENCHMARK(DragPluginSlider)
    ->Arg(256)
    ->Arg(1024)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kDrags);

}  // namespace
