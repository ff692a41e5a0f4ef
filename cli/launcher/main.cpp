// Runs POV-Ray for a caller that knows its Windows program: takes `/exit /nr FILE.ini` and the
// system's own picture type, and gives POV-Ray on Unix what that one understands.

#include "Aliases.h"
#include "FileWriting.h"
#include "IniTranslation.h"
#include "JobEnd.h"
#include "RaytracerRun.h"
#include "RegularFile.h"
#include "SearchPath.h"
#include "TemporaryFolder.h"
#include "TerminalText.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

std::string IniAmong(int argc, char** argv)
{
    std::string ini;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument != "/exit" && argument != "/nr") {
            if (!ini.empty() || argument.empty()) {
                return {};
            }
            ini = argument;
        }
    }
    return ini;
}

std::string RaytracerProgram()
{
    const char* configured = std::getenv("CORVEX_POVRAY");
    return configured != nullptr && *configured != '\0' ? configured : "povray";
}

/// Chosen as the raytracer, the launcher would start itself without end.
void ExpectOther(const std::string& program)
{
    std::error_code ignored;
    if (fs::equivalent(program, "/proc/self/exe", ignored)) {
        throw std::runtime_error(program + " is this launcher; choose POV-Ray's own program");
    }
}

std::string ContentOf(const fs::path& file)
{
    constexpr std::int64_t kMostIniBytes = 1 << 20;
    const CorvexMaterial::RegularFile regular(file.string(), kMostIniBytes);
    if (!regular.Obstacle().empty()) {
        throw std::runtime_error(file.string() + ": " + regular.Obstacle());
    }
    return regular.Content();
}

/// POV-Ray takes settings from the folder where it works, so that is one of our own, beside the
/// file of settings that it is to take; what it makes goes from there to where it belongs.
int Run(const fs::path& named)
{
    ExpectOther(RaytracerProgram());
    const fs::path ini = fs::absolute(named);
    const auto lines = launcher::ReadIni(ContentOf(ini));
    CorvexMaterial::SweepTemporaryFolders(ini.parent_path());
    const CorvexMaterial::TemporaryFolder work("povray", ini.parent_path());
    fs::current_path(work.Path());
    launcher::Aliases aliases(ini.parent_path());
    const auto translated = launcher::Translated(
        lines, {[&](const std::string& path) { return aliases.ForReading(path); },
                [&](const std::string& path) { return aliases.ForWriting(path); }});
    const std::string name = "job.ini";
    CorvexMaterial::WriteFile(name, launcher::TextOf(translated),
                              CorvexMaterial::Lifetime::Temporary);
    const int code = CorvexMaterial::RunRaytracer(RaytracerProgram(), name);
    if (const std::string full = CorvexMaterial::FullDiskText(work.Path());
        code != 0 && !full.empty()) {
        std::fprintf(stderr, "%s\n", full.c_str());
    }
    aliases.Deliver();
    return code;
}

}  // namespace

int main(int argc, char** argv)
{
    CorvexMaterial::KeepSignals();
    CorvexMaterial::DropRelativeSearchPaths();
    const std::string ini = IniAmong(argc, argv);
    if (ini.empty()) {
        std::fputs("Usage: corvex-povray [/exit] [/nr] FILE.ini\n", stderr);
        return kWrongUsage;
    }
    try {
        return Run(ini);
    } catch (const std::exception& error) {
        const std::string safe = CorvexMaterial::TerminalText(error.what());
        std::fprintf(stderr, "corvex-povray: %s\n", safe.c_str());
        return kFailed;
    }
}
