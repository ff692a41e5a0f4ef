// Reading a texture of 2048 by 2048 pixels, ready for the renderer, against the library's own
// reading of the same file. Both are measured turn by turn in one run, so that their ratio holds on
// a busy machine too. Types that no library here reads are compared with the bmp of the same
// pixels.

#include "SampleFiles.h"
#include "TextureFile.h"
#include "Timing.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <vector>

namespace {

using CorvexBenchmark::MedianOf;
using CorvexBenchmark::SecondsOf;

constexpr int kSide = 2048;

/// Neither flat, which compresses to nothing, nor noise, which no texture is.
QImage Texture(QImage::Format format)
{
    QImage image(kSide, kSide, QImage::Format_ARGB32);
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const int grain = (x * 7 + y * 13) % 31;
            image.setPixel(x, y, qRgba(x / 8, y / 8, (x ^ y) / 16 + grain, 128 + x / 16));
        }
    }
    return image.convertToFormat(format);
}

struct Sample {
    const char* name;
    const char* comparedWith;
    std::function<bool(const QString& path)> write;
};

std::function<bool(const QString&)> Saved(QImage::Format format)
{
    return [format](const QString& path) { return Texture(format).save(path); };
}

std::function<bool(const QString&)> Written(const std::function<QByteArray()>& content)
{
    return [content](const QString& path) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content()) > 0;
    };
}

const QImage::Format kPlain = QImage::Format_RGB32;
const QImage::Format kAlpha = QImage::Format_ARGB32;

const std::vector<Sample> kSamples{
    {"plain.bmp", "plain.bmp", Saved(kPlain)},
    {"plain.jpg", "plain.jpg", Saved(kPlain)},
    {"plain.png", "plain.png", Saved(kPlain)},
    {"alpha.png", "alpha.png", Saved(kAlpha)},
    {"alpha.tif", "alpha.tif", Saved(kAlpha)},
    {"grey.gif", "grey.gif", Written([] { return GifFile(Texture(kPlain)); })},
    {"plain.tga", "plain.tga", Written([] { return TgaFile(Texture(kPlain), false); })},
    {"packed.tga", "plain.bmp", Written([] { return TgaFile(Texture(kPlain), true); })},
    {"plain.pcx", "plain.bmp", Written([] { return PcxFile(Texture(kPlain)); })},
    {"alpha.dds", "plain.bmp", Written([] {
         return DdsFile({kSide, kSide});
     })},
};

void ReadTexture(benchmark::State& state, const QString& path, const QString& libraryPath)
{
    const studio::ImageBounds bounds{4096, std::int64_t{1} << 30};
    std::vector<double> ours;
    std::vector<double> library;
    for (auto _ : state) {
        ours.push_back(SecondsOf([&] {
            if (studio::ReadTextureFile(path.toStdString(), bounds).image.width() != kSide) {
                throw std::runtime_error("the studio cannot read " + path.toStdString());
            }
        }));
        library.push_back(SecondsOf([&] {
            if (QImage(libraryPath).width() != kSide) {
                throw std::runtime_error("the library cannot read " + libraryPath.toStdString());
            }
        }));
        state.SetIterationTime(ours.back());
    }
    state.counters["library_ms"] = 1000.0 * MedianOf(library);
    state.counters["ratio"] = MedianOf(ours) / MedianOf(library);
}

}  // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QTemporaryDir folder;
    for (const Sample& sample : kSamples) {
        const QString path = folder.filePath(sample.name);
        if (!sample.write(path)) {
            throw std::runtime_error(std::string("cannot write ") + sample.name);
        }
        const std::string name = std::string("ReadTexture/") + sample.name;
        benchmark::RegisterBenchmark(name.c_str(), ReadTexture, path,
                                     folder.filePath(sample.comparedWith))
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
