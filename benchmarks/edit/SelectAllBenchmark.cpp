// One edit of all shapes of a large scene, on the window's thread: from the changed field until the
// panel marks where the shapes differ.

#include "MaterialLink.h"
#include "PreviewedControl.h"

#include <QCoreApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

namespace {

using CorvexBenchmark::Clock;
using CorvexBenchmark::MedianOf;
using CorvexBenchmark::PreviewedControl;
using CorvexBenchmark::SecondsSince;

constexpr int kShapes = 10'000;

/// They differ in colour, amounts and a field.
CorvexDB::udtMaterial MaterialOf(int number)
{
    CorvexDB::udtMaterial material;
    material.Color = number * 977;
    material.Specular = number % 101;
    material.Emissive = number % 7;
    material.CustomFields[0] = "Supplier " + std::to_string(number);
    return material;
}

// The argument is how many materials the shapes have between them.
void EditAllShapes(benchmark::State& state)
{
    PreviewedControl panel;
    studio::StudioScene scene;
    studio::Selection selection;
    QUndoStack history;
    const studio::MaterialLink link(
        {panel.control, scene, selection, history, [] { return std::string(); }},
        &studio::SteadyNow);
    const int materials = static_cast<int>(state.range(0));
    std::vector<studio::AppliedMaterial> applied;
    for (int i = 0; i < materials; ++i) {
        applied.push_back(studio::WholeMaterial(MaterialOf(i)));
    }
    for (int i = 0; i < kShapes; ++i) {
        scene.Add(std::make_shared<studio::StudioShape>(
            std::to_string(i), nullptr, applied[static_cast<std::size_t>(i % materials)]));
    }
    selection.Set(scene.All());
    QCoreApplication::processEvents();
    auto* field = panel.control.findChild<QLineEdit*>("txtAmbient");
    int ambient = 0;
    std::vector<double> handlers;  // until the edited widget's signal has returned
    std::vector<double> edits;
    for (auto _ : state) {
        const auto start = Clock::now();
        field->setText(QString::number(++ambient % 100));
        handlers.push_back(SecondsSince(start));
        QCoreApplication::sendPostedEvents();
        edits.push_back(SecondsSince(start));
        state.SetIterationTime(edits.back());
        panel.log.Clear();
    }
    state.counters["handler_ms"] = 1000.0 * MedianOf(handlers);
    state.counters["edit_ms"] = 1000.0 * MedianOf(edits);
}

BENCHMARK(EditAllShapes)
    ->Arg(1)
    ->Arg(1000)
    ->Arg(kShapes)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
