// One 256 x 256 picture of a ball with read-back, without any thread, widget or host around it;
// bare, and with all six texture layers of 512 x 512.

#include "Frame.h"
#include "GlContext.h"
#include "Renderer.h"
#include "TextureCache.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

#include <cmath>
#include <map>

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

/// The same pixels for the same name, as a cache would answer.
studio::TexturePointer Noise(const std::string& name)
{
    static std::map<std::string, studio::TexturePointer> made;
    studio::TexturePointer& texture = made[name];
    if (texture == nullptr) {
        QImage image(512, 512, QImage::Format_RGBA8888);
        for (qsizetype i = 0; i < image.sizeInBytes(); ++i) {
            image.bits()[i] = i % 4 == 3 ? 255 : static_cast<uchar>(i * 2654435761U >> 13U);
        }
        texture =
            std::make_shared<const studio::Texture>(studio::Texture{made.size(), image, false, {}});
    }
    return texture;
}

void DrawBall(benchmark::State& state, const CorvexDB::udtMaterial& material, int samples)
{
    studio::Frame frame;
    frame.items.resize(1);
    frame.items[0].mesh = Ball(72);
    frame.items[0].material = std::make_shared<CorvexDB::udtMaterial>(material);
    frame.items[0].coordinates = CorvexSG::CoordinateMode::FromWrap;
    frame.samples = samples;
    const auto provider = studio::MakeGlContextProvider();
    studio::Renderer renderer(provider->Create());
    const studio::TextureLookup lookup = [](const std::string& path) { return Noise(path); };
    benchmark::DoNotOptimize(renderer.Draw(frame, lookup));  // compiles and uploads
    for (auto _ : state) {
        benchmark::DoNotOptimize(renderer.Draw(frame, lookup));
    }
}

CorvexDB::udtMaterial SixLayers(CorvexDB::WrapType wrap)
{
    CorvexDB::udtMaterial material;
    material.Textures = {"1", "2", "3", "4", "5", "6"};
    material.Wrap = wrap;
    return material;
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
BENCHMARK_CAPTURE(DrawBall, six_layers_flat, SixLayers(CorvexDB::WrapType::Flat), 1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawBall, six_layers_spherical, SixLayers(CorvexDB::WrapType::Spherical), 1)
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
