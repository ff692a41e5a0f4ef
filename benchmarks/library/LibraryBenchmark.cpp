// What a library browser asks of a library of 10,000 and of 100,000 materials, against the bare
// SQLite statements that do the same. Both are measured turn by turn in one run, so that their
// ratio holds on a busy machine too.

#include "LibraryQuery.h"
#include "SampleLibrary.h"
#include "Timing.h"

#include <QGuiApplication>
#include <QImage>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>

namespace {

using CorvexBenchmark::MedianOf;
using CorvexBenchmark::SecondsOf;

constexpr int kPage = 60;  ///< thumbnails that a large browser shows at once

/// What is done between the turns is not measured.
void Compare(
    benchmark::State& state, const std::function<void()>& ours, const std::function<void()>& bare,
    const std::function<void()>& between = [] {})
{
    std::vector<double> our;
    std::vector<double> floor;
    for (auto _ : state) {
        our.push_back(SecondsOf(ours));
        floor.push_back(SecondsOf(bare));
        between();
        state.SetIterationTime(our.back());
    }
    state.counters["floor_ms"] = 1000.0 * MedianOf(floor);
    state.counters["ours_ms"] = 1000.0 * MedianOf(our);
    state.counters["ratio"] = MedianOf(our) / MedianOf(floor);
}

SampleLibrary& Sample(benchmark::State& state)
{
    static std::map<std::int64_t, std::unique_ptr<SampleLibrary>> samples;
    auto& sample = samples[state.range(0)];
    if (sample == nullptr) {
        sample = std::make_unique<SampleLibrary>(static_cast<int>(state.range(0)));
    }
    return *sample;
}

studio::LibraryFile OpenedSample(const SampleLibrary& sample)
{
    return studio::LibraryFile::Open(sample.Path(), studio::LibraryKind::Materials);
}

void Expect(bool isTrue)
{
    if (!isTrue) {
        throw std::runtime_error("the two sides disagree");
    }
}

constexpr const char* kAllIds = "SELECT id FROM entries WHERE trashed = 0 ORDER BY id";

void OpenAndList(benchmark::State& state)
{
    SampleLibrary& sample = Sample(state);
    const auto bareOpen = [&] {
        sqlite3* handle = nullptr;
        sqlite3_open(sample.Path().c_str(), &handle);
        Expect(BareStatement(handle, kAllIds).Run() >= state.range(0));
        BareStatement name(handle, "SELECT name FROM entries WHERE id = ?1");
        for (int i = 1; i <= kPage; ++i) {
            Expect(!name.Bind(1, i).Bytes().isEmpty());
        }
        sqlite3_close_v2(handle);
    };
    const auto open = [&] {
        auto library = OpenedSample(sample);
        for (std::int32_t i = 0; i < kPage; ++i) {
            Expect(!library.NameAt(i).empty());
        }
    };
    Compare(state, open, bareOpen);
}

void PageOfThumbnails(benchmark::State& state)
{
    SampleLibrary& sample = Sample(state);
    auto library = OpenedSample(sample);
    BareStatement png(sample.Bare(), "SELECT png FROM thumbnails WHERE entry = ?1");
    std::int32_t first = 0;
    const auto next = [&] { first = (first + 7919) % (library.Count() - kPage); };
    const auto ours = [&] {
        for (std::int32_t i = first; i < first + kPage; ++i) {
            const std::string bytes = library.ThumbnailAt(i);
            Expect(!QImage::fromData(
                        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())))
                        .isNull());
        }
        next();
    };
    const auto bare = [&] {
        for (std::int32_t i = first; i < first + kPage; ++i) {
            Expect(!QImage::fromData(png.Bind(1, i + 1).Bytes()).isNull());
        }
        next();
    };
    Compare(state, ours, bare);
}

void SearchFor(benchmark::State& state, const char* text, const char* sql)
{
    SampleLibrary& sample = Sample(state);
    auto library = OpenedSample(sample);
    BareStatement statement(sample.Bare(), sql);
    std::size_t found = 0;
    const auto ours = [&] {
        const auto query = studio::ReadLibraryQuery(text);
        found = library.Search(std::get<studio::LibraryQuery>(query)).size();
    };
    const auto bare = [&] { Expect(statement.Run() == static_cast<int>(found)); };
    Compare(state, ours, bare);
}

void SearchName(benchmark::State& state)
{
    SearchFor(state, "quartz 77",
              "SELECT id FROM entries WHERE trashed + 0 = 0 AND instr(folded, 'quartz') AND "
              "instr(folded, '77') ORDER BY id");
}

void SearchProperties(benchmark::State& state)
{
    SearchFor(state, "transparency>30 has:bump",
              "SELECT id FROM entries WHERE trashed + 0 = 0 AND transparency > 30 AND layers & 8 "
              "ORDER BY id");
}

// The floor compares one component and knows nothing of how colours look.
void SearchColour(benchmark::State& state)
{
    SampleLibrary& sample = Sample(state);
    auto library = OpenedSample(sample);
    BareStatement statement(sample.Bare(), "SELECT id FROM entries WHERE trashed + 0 = 0 AND "
                                           "abs((colour & 255) - 255) < 20 ORDER BY id");
    const auto query = studio::ReadLibraryQuery("color~gold");
    const auto ours = [&] {
        Expect(!library.Search(std::get<studio::LibraryQuery>(query)).empty());
    };
    Compare(state, ours, [&] { Expect(statement.Run() > 0); });
}

void AddOne(benchmark::State& state)
{
    SampleLibrary& sample = Sample(state);
    auto library = OpenedSample(sample);
    const studio::NewEntry entry = SampleLibrary::Entry(5);
    BareStatement begin(sample.Bare(), "BEGIN IMMEDIATE");
    BareStatement row(sample.Bare(), "INSERT INTO entries (name, folded, colour, layers) VALUES "
                                     "(?1, ?1, 5, 8)");
    BareStatement json(sample.Bare(), "INSERT INTO contents VALUES (last_insert_rowid(), ?1)");
    BareStatement png(sample.Bare(),
                      "INSERT INTO thumbnails VALUES (last_insert_rowid(), CAST(?1 AS BLOB))");
    BareStatement commit(sample.Bare(), "COMMIT");
    const auto bare = [&] {
        begin.Run();
        row.Bind(1, entry.name).Run();
        json.Bind(1, entry.json).Run();
        png.Bind(1, entry.png).Run();
        commit.Run();
    };
    // The other connection is another program to the library, which counts its entries anew.
    Compare(
        state, [&] { library.Add(entry); }, bare, [&] { library.Refresh(); });
}

void DeleteOne(benchmark::State& state)
{
    SampleLibrary& sample = Sample(state);
    auto library = OpenedSample(sample);
    BareStatement remove(sample.Bare(), "UPDATE entries SET trashed = (SELECT max(trashed) + 1 "
                                        "FROM entries) WHERE id = ?1");
    Compare(
        state, [&] { library.Remove(library.IdAt(library.Count() / 2)); },
        [&] { remove.Bind(1, library.IdAt(library.Count() - 1)).Run(); },
        [&] { library.Refresh(); });
}

void WithBothSizes(const char* name, void (*function)(benchmark::State&))
{
    benchmark::RegisterBenchmark(name, function)
        ->Arg(10000)
        ->Arg(100000)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

}  // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    WithBothSizes("OpenAndList", OpenAndList);
    WithBothSizes("PageOfThumbnails", PageOfThumbnails);
    WithBothSizes("SearchName", SearchName);
    WithBothSizes("SearchProperties", SearchProperties);
    WithBothSizes("SearchColour", SearchColour);
    WithBothSizes("AddOne", AddOne);
    WithBothSizes("DeleteOne", DeleteOne);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
