#include "PovRayJob.h"

#include <CorvexMaterial/Status.h>

#include <algorithm>
#include <charconv>

namespace CorvexMaterial {

namespace {

constexpr char kLineBreak = '\n';
/// With the scene's own folder these are the 20 library paths that POV-Ray takes everywhere.
constexpr std::size_t kMostFolders = 19;

bool IsOneLine(const std::string& text)
{
    return text.find_first_of(std::string_view("\n\r\0", 3)) == std::string::npos;
}

std::string WithoutSeparator(const std::string& folder)
{
    const bool ends = folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\');
    return ends ? folder.substr(0, folder.size() - 1) : folder;
}

class IniWriter {
public:
    explicit IniWriter(RenderStart& start) : m_start(start) {}

    void Line(const char* key, const std::string& value)
    {
        m_start.settings.append(key).append("=").append(value).push_back(kLineBreak);
    }

    void Antialias(std::int32_t choice)
    {
        if (choice == 0) {
            Line("Antialias", "off");
        } else {
            Line("Antialias", "on");
            Line("Antialias_Depth", choice == 1 ? "2" : "4");
        }
    }

    void Folder(std::size_t number, const std::string& folder)
    {
        const std::string opening = "POVRay Library_Path(" + std::to_string(number) + ")=";
        if (!IsOneLine(folder)) {
            m_start.trace.push_back(opening + " left out, its name has a line break");
        } else if (!folder.empty()) {
            Line("Library_Path", WithoutSeparator(folder));
            m_start.trace.push_back(opening + folder);
        }
    }

    void NoSceneFolder()
    {
        m_start.trace.emplace_back(
            "POVRay Library_Path(0)= NULL (gcVSG.ApplicationState.ScenePath=\"\")");
    }

private:
    RenderStart& m_start;
};

}  // namespace

RenderStart PovRayStart(const RenderTask& task, CorvexDB::ApplicationState& state)
{
    if (!IsOneLine(task.scene)) {
        throw Error(Status::InvalidArgument,
                    "a raytracer cannot work in a temporary folder whose name has a line break");
    }
    RenderStart start;
    IniWriter ini(start);
    ini.Line("Input_File_Name", task.scene);
    ini.Line("Width", std::to_string(task.size.width));
    ini.Line("Height", std::to_string(task.size.height));
    ini.Line("Output_File_Type", "S");
    ini.Line("Quality", "11");
    ini.Antialias(task.antialias);
    ini.Line("Display", "off");
    if (const std::string sceneFolder = state.ScenePath(); sceneFolder.empty()) {
        ini.NoSceneFolder();
    } else {
        ini.Folder(0, sceneFolder);
    }
    const std::vector<std::string> folders = state.SearchFolders();
    for (std::size_t i = 0; i < std::min(folders.size(), kMostFolders); ++i) {
        ini.Folder(i + 1, folders[i]);
    }
    ini.Line("Output_File_Name", task.picture);
    start.command = {task.program + " /exit /nr " + " " + task.settings,
                     task.program,
                     {"/exit", "/nr", task.settings},
                     {}};
    return start;
}

CorvexDB::CommandLine PovRayCommandLine(const RenderTask& task)
{
    std::vector<std::string> arguments{"+I" + task.scene,
                                       "+O" + task.picture,
                                       "+FN",
                                       "+W" + std::to_string(task.size.width),
                                       "+H" + std::to_string(task.size.height),
                                       "+Q11",
                                       "-D"};
    if (task.antialias == 0) {
        arguments.emplace_back("-A");
    } else {
        arguments.emplace_back("+A0.1");
        arguments.emplace_back(task.antialias == 1 ? "+R2" : "+R4");
    }
    return {{}, task.program, std::move(arguments), {}};
}

std::optional<int> PovRayPercentIn(std::string_view line)
{
    constexpr std::string_view kOpening = "Rendered ";
    constexpr std::string_view kPercentOpening = "pixels (";
    const std::size_t start = line.find(kOpening);
    const std::size_t bracket = line.find(kPercentOpening);
    if (start == std::string_view::npos || bracket == std::string_view::npos) {
        return std::nullopt;
    }
    line.remove_prefix(bracket + kPercentOpening.size());
    int percent = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), percent);
    const bool closed = error == std::errc() && end != line.data() + line.size() && *end == '%';
    return closed ? std::optional(std::clamp(percent, 0, 100)) : std::nullopt;
}

}  // namespace CorvexMaterial
