// Draws the textures and environment maps of the shipped libraries into the folder that is its
// first argument. Further arguments name the only ones to draw.

#include "ImageFiles.h"

#include <QDir>

#include <algorithm>
#include <atomic>
#include <exception>
#include <functional>
#include <iostream>
#include <thread>
#include <vector>

namespace {

using Job = std::function<void()>;

/// On all processors. Returns what went wrong, empty if nothing did.
std::string Run(const std::vector<Job>& jobs)
{
    std::atomic<std::size_t> next = 0;
    const std::size_t workers = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::string> errors(workers);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < workers; ++i) {
        threads.emplace_back([&, i] {
            try {
                for (std::size_t job = next++; job < jobs.size(); job = next++) {
                    jobs[job]();
                }
            } catch (const std::exception& error) {
                errors[i] = error.what();
            }
        });
    }
    std::string wrong;
    for (std::size_t i = 0; i < workers; ++i) {
        threads[i].join();
        wrong = errors[i].empty() ? wrong : errors[i];
    }
    return wrong;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::cerr << "usage: library_image_writer <folder> [name...]\n";
        return 2;
    }
    const std::vector<std::string_view> only(argv + 2, argv + argc);
    const auto wanted = [&](std::string_view name) {
        return only.empty() || std::ranges::find(only, name) != only.end();
    };
    const QString textures = QString::fromLocal8Bit(argv[1]) + QStringLiteral("/Textures");
    const QString environments = QString::fromLocal8Bit(argv[1]) + QStringLiteral("/Environments");
    QDir().mkpath(textures);
    QDir().mkpath(environments);
    std::vector<Job> jobs;
    for (const auto& row : media::kTextures) {
        if (wanted(row.name)) {
            jobs.emplace_back([&] { media::WriteTexture(row, textures); });
        }
    }
    for (const auto& row : media::kEnvironments) {
        if (wanted(row.name)) {
            jobs.emplace_back([&] { media::WriteEnvironment(row, environments); });
        }
    }
    const std::string wrong = Run(jobs);
    if (!wrong.empty()) {
        std::cerr << "library_image_writer: " << wrong << '\n';
    }
    return wrong.empty() ? 0 : 1;
}
