// What the control itself costs: its host, desktop and shapes do next to nothing.

#include "ControlRig.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using CorvexTest::ControlRig;

/// Keeps what it is given, as a real shape must.
class KeepingShape : public CorvexSG::Shape {
public:
    void ApplyMaterial(const CorvexSG::MaterialApplication& application) override
    {
        m_gathered = application.gathered;
    }
    void ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application) override
    {
        m_gathered = application.gathered;
    }
    void LoadMeshFile(const std::string& /*path*/) override {}
    void SetShapeOption(std::int32_t /*option*/) override {}
    void Move(float /*distance*/, std::int32_t /*mode*/) override {}

private:
    std::shared_ptr<const CorvexSG::GatheredMaterial> m_gathered;
};

void ConstructControl(benchmark::State& state)
{
    ControlRig rig;
    for (auto _ : state) {
        rig.Create();
        state.PauseTiming();
        rig.Terminate();
        rig.log.Clear();
        state.ResumeTiming();
    }
}

/// Until a user can work with it.
void ConstructLoadAndShow(benchmark::State& state)
{
    ControlRig rig;
    for (auto _ : state) {
        rig.Start();
        QApplication::processEvents();
        state.PauseTiming();
        rig.Terminate();
        rig.log.Clear();
        state.ResumeTiming();
    }
}

void LoadSavedStatus(benchmark::State& state)
{
    ControlRig rig;
    rig.Start();
    rig.Restart();  // now the store holds a value for every key
    for (auto _ : state) {
        rig.Control().LoadSavedStatus();
        state.PauseTiming();
        rig.log.Clear();
        state.ResumeTiming();
    }
}

void ApplyShapeMaterial(benchmark::State& state)
{
    ControlRig rig;
    rig.Start();
    auto& control = rig.Control();
    auto& scene = rig.host.Viewport()->TheScene();
    std::vector<KeepingShape> shapes(static_cast<std::size_t>(state.range(0)));
    std::int32_t colour = 0;
    for (auto _ : state) {
        state.PauseTiming();
        control.put_lVBColor(++colour);
        rig.log.Clear();
        state.ResumeTiming();
        for (KeepingShape& shape : shapes) {
            control.ApplyShapeMaterial(scene, shape, false, nullptr, nullptr, {}, {}, false, {},
                                       {});
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(ConstructControl)->Unit(benchmark::kMillisecond);
BENCHMARK(ConstructLoadAndShow)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadSavedStatus)->Unit(benchmark::kMicrosecond);
BENCHMARK(ApplyShapeMaterial)
    ->Arg(1)
    ->Arg(100)
    ->Arg(10'000)
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
