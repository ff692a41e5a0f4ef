// A scene of 1,000 shapes with 2 million triangles as a document: saved after edits and opened,
// with 500 MB of textures inside, beside or none, and next to it one file that is always written
// whole and the same meshes in a GLB; and what the journal of edits costs the window's thread in a
// scene of 10,000 shapes.

#include "EditJournal.h"
#include "FileWriting.h"
#include "Formats.h"
#include "Interchange.h"
#include "ParametricMesh.h"
#include "SceneDocument.h"

#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <random>

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

studio::AppliedMaterial Dressed(int percent, const std::string& texture = {})
{
    CorvexDB::udtMaterial material;
    material.Specular = percent;
    material.Textures.primary = texture;
    studio::AppliedMaterial applied = studio::WholeMaterial(material);
    applied.identity = std::make_shared<studio::SceneMaterial>(
        studio::SceneMaterial{"Material " + std::to_string(percent), {}});
    return applied;
}

using MeshOf = std::function<std::shared_ptr<const studio::Mesh>(int)>;
using TextureOf = std::function<std::string(int)>;

StudioScene::Shapes Shapes(int count, const MeshOf& mesh, const TextureOf& texture = {})
{
    std::vector<studio::AppliedMaterial> materials;
    for (int i = 0; i < 100; ++i) {
        materials.push_back(Dressed(i, texture ? texture(i) : std::string()));
    }
    StudioScene::Shapes shapes;
    for (int i = 0; i < count; ++i) {
        shapes.push_back(
            std::make_shared<StudioShape>("Assembly/Group/Shape " + std::to_string(i), mesh(i),
                                          materials[static_cast<std::size_t>(i) % 100]));
    }
    return shapes;
}

/// 5 MB that cannot be made smaller.
void SaveNoise(const QString& file, unsigned seed)
{
    QImage image(1291, 1291, QImage::Format_RGB888);
    std::mt19937 dice(seed);
    for (int y = 0; y < image.height(); ++y) {
        std::generate_n(image.scanLine(y), image.bytesPerLine(),
                        [&] { return static_cast<uchar>(dice()); });
    }
    constexpr int kAsItIs = 100;
    image.save(file, "PNG", kAsItIs);
}

enum Textures : std::int64_t { kNone, kBeside, kInside };

/// The large scene and its files.
struct Large {
    QTemporaryDir folder;
    StudioScene::Shapes shapes;
    SceneContent content;
    std::string document = PathOf("large.corvex");

    explicit Large(Textures textures)
    {
        const TextureOf texture = [&](int i) {
            const std::string file = PathOf("noise") + std::to_string(i) + ".png";
            SaveNoise(QString::fromStdString(file), static_cast<unsigned>(i));
            return file;
        };
        shapes = Shapes(
            1000, [](int i) { return Ball(1.0F + 0.001F * static_cast<float>(i)); },
            textures == kNone ? TextureOf() : texture);
        for (const auto& shape : shapes) {
            content.shapes.push_back(shape->State());
        }
        content.textures =
            textures == kInside ? studio::TexturePlace::Embedded : studio::TexturePlace::Referenced;
        static_cast<void>(studio::SceneDocument::Create(document, content, PathOf("cache")));
    }

    [[nodiscard]] std::string PathOf(const char* name) const
    {
        return folder.filePath(name).toStdString();
    }
};

Large& TheLarge(std::int64_t textures = kNone)
{
    static std::map<std::int64_t, Large> made;
    return made.try_emplace(textures, static_cast<Textures>(textures)).first->second;
}

/// So many edits, each of one shape.
void SaveAfterEdits(benchmark::State& state)
{
    Large& large = TheLarge(state.range(0));
    auto opened = studio::SceneDocument::Open(large.document, large.PathOf("cache"));
    int specular = 0;
    for (auto run : state) {
        for (std::int64_t i = 0; i < state.range(1); ++i) {
            auto& applied = opened.content.shapes[static_cast<std::size_t>(i)].applied;
            applied = Dressed(++specular % 100, applied.gathered->material.Textures.primary);
        }
        opened.document.Save(opened.content);
    }
}
BENCHMARK(SaveAfterEdits)
    ->ArgNames({"textures", "edits"})
    ->ArgsProduct({{kNone, kBeside, kInside}, {1, 30, 1000}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

void SaveNew(benchmark::State& state)
{
    Large& large = TheLarge(state.range(0));
    for (auto run : state) {
        static_cast<void>(studio::SceneDocument::Create(large.PathOf("new.corvex"), large.content,
                                                        large.PathOf("cache")));
    }
}
BENCHMARK(SaveNew)
    ->ArgName("textures")
    ->DenseRange(kNone, kInside)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

/// What any save would cost in a file of one piece, without its materials.
void WriteOneFileWhole(benchmark::State& state)
{
    Large& large = TheLarge();
    for (auto run : state) {
        CorvexMaterial::FileWriter file(large.PathOf("whole"));
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
    Large& large = TheLarge(state.range(0));
    const auto open = [&large] {
        return studio::SceneDocument::Open(large.document, large.PathOf("cache")).content;
    };
    static_cast<void>(open());
    for (auto run : state) {
        benchmark::DoNotOptimize(open());
    }
}
BENCHMARK(OpenDocument)
    ->ArgName("textures")
    ->DenseRange(kNone, kInside)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

/// On a machine that has never seen its pictures.
void OpenDocumentForTheFirstTime(benchmark::State& state)
{
    Large& large = TheLarge(state.range(0));
    const std::string cache = large.PathOf("first");
    for (auto run : state) {
        benchmark::DoNotOptimize(studio::SceneDocument::Open(large.document, cache).content);
        state.PauseTiming();
        std::filesystem::remove_all(cache);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenDocumentForTheFirstTime)
    ->ArgName("textures")
    ->Arg(kInside)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

void ReadSameModel(benchmark::State& state)
{
    Large& large = TheLarge(state.range(0));
    const std::string model = large.PathOf("large.glb");
    studio::Report report;
    studio::ExportScene(model, large.shapes, report);
    for (auto run : state) {
        benchmark::DoNotOptimize(studio::ReadModel(model));
    }
}
BENCHMARK(ReadSameModel)
    ->ArgName("textures")
    ->Arg(kNone)
    ->Arg(kInside)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MinTime(2.0);

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
        const studio::AppliedMaterial edited = Dressed(++specular % 100);
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
