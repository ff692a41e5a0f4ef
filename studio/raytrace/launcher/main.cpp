// Runs POV-Ray for a caller that knows its Windows program: takes `/exit /nr FILE.ini` and the
// system's own picture type, and gives POV-Ray on Unix what that one understands.

#include "platform/SearchPath.h"
#include "studio/raytrace/launcher/Aliases.h"
#include "studio/raytrace/launcher/IniTranslation.h"
#include "studio/raytrace/launcher/Leftovers.h"
#include "studio/raytrace/launcher/RaytracerRun.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

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
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error(file.string() + " cannot be read");
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A new file in the current folder, gone when this is.
class OwnFile {
public:
    OwnFile(std::string name, const std::string& content) : m_name(std::move(name))
    {
        const int file = open(m_name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        const bool written = file >= 0 && write(file, content.data(), content.size()) ==
                                              static_cast<ssize_t>(content.size());
        if (file >= 0) {
            close(file);
        }
        if (!written) {
            if (file >= 0) {
                std::remove(m_name.c_str());
            }
            throw std::runtime_error(m_name + " cannot be written");
        }
    }
    ~OwnFile() { std::remove(m_name.c_str()); }
    OwnFile(const OwnFile&) = delete;
    OwnFile& operator=(const OwnFile&) = delete;

private:
    std::string m_name;
};

/// POV-Ray leaves a state file behind when it is stopped, named after the scene or the picture.
void RemoveState(const std::vector<launcher::IniLine>& lines)
{
    std::error_code ignored;
    for (const char* key : {"Input_File_Name", "Output_File_Name"}) {
        const fs::path named = launcher::ValueOf(lines, key);
        if (!named.empty()) {
            fs::remove(fs::path(named).replace_extension(".pov-state"), ignored);
            fs::remove(named.stem().string() + ".pov-state", ignored);
        }
    }
}

int Run(const fs::path& ini)
{
    ExpectOther(RaytracerProgram());
    const std::string prefix = launcher::OwnPrefix();
    const auto lines = launcher::ReadIni(ContentOf(ini));
    if (ini.has_parent_path()) {
        fs::current_path(ini.parent_path());
    }
    launcher::RemoveLeftovers();
    launcher::Aliases aliases(prefix);
    const auto translated = launcher::Translated(
        lines, {[&](const std::string& path) { return aliases.ForReading(path); },
                [&](const std::string& path) { return aliases.ForWriting(path); }});
    const std::string name = prefix + ".ini";
    const OwnFile sibling(name, launcher::TextOf(translated));
    const int code = launcher::RunRaytracer(RaytracerProgram(), name);
    RemoveState(translated);
    aliases.Deliver();
    return code;
}

}  // namespace

int main(int argc, char** argv)
{
    launcher::KeepSignals();
    CorvexMaterial::DropRelativeSearchPaths();
    const std::string ini = IniAmong(argc, argv);
    if (ini.empty()) {
        std::fputs("Usage: corvex-povray [/exit] [/nr] FILE.ini\n", stderr);
        return kWrongUsage;
    }
    try {
        return Run(ini);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "corvex-povray: %s\n", error.what());
        return kFailed;
    }
}
