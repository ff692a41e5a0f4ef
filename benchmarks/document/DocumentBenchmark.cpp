// A scene of 1,000 shapes with 2 million triangles as a document: saved after one edit and opened,
// beside one file that is always written whole and the same meshes in a GLB; and what the journal
// of edits costs the window's thread in a scene of 10,000 shapes.

#include "EditJournal.h"
#include "FileWriting.h"
#include "Formats.h"
#include "Interchange.h"
#include "ParametricMesh.h"
#include "SceneDocument.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

using studio::SceneContent;
using studio::StudioScene;
using studio::StudioShape;

std::shared_ptr<const studio::Mesh> Ball(float radius)
{
    const studio::Surface surface = [radius](float u, float v) {
        const float around = 6.2831853F * u;
        const float up = 3.14159265F * (v - 0.5F);
        return QVector3D(std::cos(up) * std::sin(around), std::sin(up),
                         std::cos(up) * std::cos(around)) *
               radius;
    };
    return studio::ParametricMesh(surface, {40, 25});
}

studio::AppliedMaterial Specular(int percent)
{
    CorvexDB::udtMaterial material;
    material.Specular = percent;
    studio::AppliedMaterial applied = studio::WholeMaterial(material);
    applied.identity = std::make_shared<studio::SceneMaterial>(
        studio::SceneMaterial{"Material " + std::to_string(percent), {}});
    return applied;
}

StudioScene::Shapes Shapes(int count,
                           const std::function<std::shared_ptr<const studio::Mesh>(int)>& mesh)
{
    std::vector<studio::AppliedMaterial> materials;
    for (int i = 0; i < 100; ++i) {
        materials.push_back(Specular(i));
    }
    StudioScene::Shapes shapes;
    for (int i = 0; i < count; ++i) {
        shapes.push_back(
            std::make_shared<StudioShape>("Assembly/Group/Shape " + std::to_string(i), mesh(i),
                                          materials[static_cast<std::size_t>(i) % 100]));
    }
    return shapes;
}

/// The large scene and its files.
struct Large {
    QTemporaryDir folder;
    StudioScene::Shapes shapes =
        Shapes(1000, [](int i) { return Ball(1.0F + 0.001F * static_cast<float>(i)); });
    SceneContent content;
    std::string document = folder.filePath("large.corvex").toStdString();
    std::string model = folder.filePath("large.glb").toStdString();

    Large()
    {
        for (const auto& shape : shapes) {
            content.shapes.push_back(shape->State());
        }
        studio::Report report;
        studio::ExportScene(model, shapes, report);
        static_cast<void>(studio::SceneDocument::Create(document, content, Pictures()));
    }

    [[nodiscard]] std::string Pictures() const { return folder.filePath("cache").toStdString(); }
};

Large& TheLarge()
{
    static Large large;
    return large;
}

void SaveAfterOneEdit(benchmark::State& state)
{
    Large& large = TheLarge();
    auto opened = studio::SceneDocument::Open(large.document, large.Pictures());
    int specular = 0;
    for (auto run : state) {
        opened.content.shapes[500].applied = Specular(++specular % 100);
        opened.document.Save(opened.content);
    }
}
BENCHMARK(SaveAfterOneEdit)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void SaveNew(benchmark::State& state)
{
    Large& large = TheLarge();
    for (auto run : state) {
        static_cast<void>(studio::SceneDocument::Create(
            large.folder.filePath("new.corvex").toStdString(), large.content, large.Pictures()));
    }
}
BENCHMARK(SaveNew)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

/// What any save would cost in a file of one piece, without its materials.
void WriteOneFileWhole(benchmark::State& state)
{
    Large& large = TheLarge();
    for (auto run : state) {
        CorvexMaterial::FileWriter file(large.folder.filePath("whole").toStdString());
        for (const auto& shape : large.content.shapes) {
            const auto write = [&file](const auto& items) {
                const auto bytes = std::as_bytes(std::span(items));
                file.Write({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
            };
            write(shape.mesh->vertices);
            write(shape.mesh->indices);
        }
        file.Finish();
    }
}
BENCHMARK(WriteOneFileWhole)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void OpenDocument(benchmark::State& state)
{
    Large& large = TheLarge();
    for (auto run : state) {
        benchmark::DoNotOptimize(
            studio::SceneDocument::Open(large.document, large.Pictures()).content);
    }
}
BENCHMARK(OpenDocument)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

void ReadSameModel(benchmark::State& state)
{
    Large& large = TheLarge();
    for (auto run : state) {
        benchmark::DoNotOptimize(studio::ReadModel(large.model));
    }
}
BENCHMARK(ReadSameModel)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(2.0);

/// Only what the window's thread does; edits of so many of the shapes.
void JournalAnEdit(benchmark::State& state)
{
    const QTemporaryDir folder;
    const auto mesh = Ball(1.0F);
    const StudioScene::Shapes shapes = Shapes(10000, [&mesh](int) { return mesh; });
    studio::EditJournal journal(folder.path().toStdString(), [](const std::string&) {});
    journal.Begin({}, "Benchmark", shapes, {});
    journal.Flush();
    int specular = 0;
    for (auto run : state) {
        state.PauseTiming();
        const studio::AppliedMaterial edited = Specular(++specular % 100);
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            shapes[static_cast<std::size_t>(i)]->SetApplied(edited);
        }
        state.ResumeTiming();
        journal.Record(shapes, {}, studio::Camera(), "Specular");
    }
}
BENCHMARK(JournalAnEdit)->Arg(0)->Arg(1)->Arg(10000)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
