// One edit of a user, from the edited widget to drawn pixels, against drawing the same frame alone.
// Both are measured turn by turn in one run, so that their ratio holds on a busy machine too.

#include "GlContext.h"
#include "PreviewedControl.h"
#include "Renderer.h"
#include "TextureCache.h"

#include <QApplication>
#include <QLineEdit>
#include <QLinearGradient>
#include <QPainter>
#include <QTabBar>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <optional>
#include <vector>

namespace {

using CorvexBenchmark::Clock;
using CorvexBenchmark::MedianOf;
using CorvexBenchmark::PreviewedControl;
using CorvexBenchmark::SecondsSince;
using CorvexMaterial::Material;
using PutFile = CorvexMaterial::Status (Material::*)(const std::string&);

constexpr std::array<PutFile, 6> kLayers{
    &Material::put_TextureFileName,        &Material::put_TextureOverlayFileName,
    &Material::put_TextureBumpmapFileName, &Material::put_TextureSpecularMapFileName,
    &Material::put_TextureAlphaFileName,   &Material::put_TextureEnvironmentMapFileName};

/// One picture per layer, of this many pixels a side.
class LayerFiles {
public:
    LayerFiles(PreviewedControl& panel, int side)
    {
        for (std::size_t i = 0; i < kLayers.size(); ++i) {
            QImage image(side, side, QImage::Format_RGB32);
            QLinearGradient gradient(0, 0, side, side);
            gradient.setColorAt(0.0, QColor::fromHsv(static_cast<int>(60 * i), 120, 255));
            gradient.setColorAt(1.0, QColor::fromHsv(static_cast<int>(60 * i), 180, 160));
            QPainter(&image).fillRect(image.rect(), gradient);
            const QString path = m_folder.filePath(QStringLiteral("layer%1.jpg").arg(i));
            image.save(path);
            benchmark::DoNotOptimize(panel.service.Textures().Await(path.toStdString()));
            (panel.control.*kLayers[i])(path.toStdString());
            panel.WaitForPicture();
        }
    }

private:
    QTemporaryDir m_folder;
};

// The argument is the side of the six layers' pictures; 0 leaves the material untextured.
void EditToPixels(benchmark::State& state)
{
    PreviewedControl panel;
    std::optional<LayerFiles> layers;
    if (state.range(0) > 0) {
        layers.emplace(panel, static_cast<int>(state.range(0)));
    }
    auto* field = panel.control.findChild<QLineEdit*>("txtAmbient");
    studio::Renderer renderer(studio::MakeGlContextProvider()->Create());
    const auto textures = [&](const std::string& path) {
        return panel.service.Textures().Await(path);
    };
    std::vector<double> bare;
    std::vector<double> edits;
    std::vector<double> handlers;  // until the edited widget's signal has returned
    int ambient = 0;
    for (auto _ : state) {
        const studio::Frame frame = panel.view->CurrentFrame();
        auto start = Clock::now();
        benchmark::DoNotOptimize(renderer.Draw(frame, textures));
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

// From tab to tab through the six layers, each picture 4096 pixels a side.
void SwitchTabs(benchmark::State& state)
{
    PreviewedControl panel;
    const LayerFiles layers(panel, 4096);
    auto* tabs = panel.control.findChild<QTabBar*>("tabChannels");
    const auto visit = [tabs](int tab) {
        tabs->setCurrentIndex(tab);
        tabs->window()->repaint();
    };
    for (int tab = 1; tab <= 6; ++tab) {
        visit(tab);
    }
    int tab = 0;
    for (auto _ : state) {
        visit(1 + tab++ % 6);
        panel.log.Clear();
    }
}

BENCHMARK(EditToPixels)
    ->Arg(0)
    ->Arg(512)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->MinTime(3.0);
BENCHMARK(SwitchTabs)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
