// One 256 x 256 picture of a ball with read-back, without any thread, widget or host around it.

#include "studio/render/Frame.h"
#include "studio/render/GlContext.h"
#include "studio/render/Renderer.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

std::shared_ptr<const studio::Mesh> Ball(std::uint32_t columns)
{
    const std::uint32_t rows = columns / 2;
    std::vector<studio::Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (std::uint32_t i = 0; i < (rows + 1) * (columns + 1); ++i) {
        const float up =
            3.14159265F * (static_cast<float>(i / (columns + 1)) / static_cast<float>(rows) - 0.5F);
        const float around =
            6.2831853F * static_cast<float>(i % (columns + 1)) / static_cast<float>(columns);
        studio::Vertex vertex;
        vertex.position = {std::cos(up) * std::sin(around), std::sin(up),
                           std::cos(up) * std::cos(around)};
        vertex.normal = vertex.position;
        vertices.push_back(vertex);
        const std::uint32_t above = i + columns + 1;
        if (i % (columns + 1) < columns) {
            indices.insert(indices.end(), {i, i + 1, above + 1, i, above + 1, above});
        }
    }
    return studio::MakeMesh(std::move(vertices), std::move(indices));
}

void DrawBall(benchmark::State& state, const CorvexDB::udtMaterial& material, int samples)
{
    studio::Frame frame;
    frame.items = {{Ball(72), std::make_shared<CorvexDB::udtMaterial>(material), {}, false}};
    frame.samples = samples;
    const auto provider = studio::MakeGlContextProvider();
    studio::Renderer renderer(provider->Create());
    benchmark::DoNotOptimize(renderer.Draw(frame));  // compiles and uploads
    for (auto _ : state) {
        benchmark::DoNotOptimize(renderer.Draw(frame));
    }
}

CorvexDB::udtMaterial Glossy(int transparency)
{
    CorvexDB::udtMaterial material;
    material.Specular = 60;
    material.Transparency = transparency;
    material.DoubleSided = transparency > 0;
    return material;
}

BENCHMARK_CAPTURE(DrawBall, default_material, CorvexDB::udtMaterial(), 1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawBall, glossy, Glossy(0), 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawBall, transparent_both_sides, Glossy(50), 1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawBall, default_material_smooth_edges, CorvexDB::udtMaterial(), 4)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
