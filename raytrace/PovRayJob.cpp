#include "raytrace/PovRayJob.h"

#include "host/Status.h"

#include <algorithm>

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
    void Line(const char* key, const std::string& value)
    {
        m_ini.text.append(key).append("=").append(value).push_back(kLineBreak);
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
            m_ini.trace.push_back(opening + " left out, its name has a line break");
        } else if (!folder.empty()) {
            Line("Library_Path", WithoutSeparator(folder));
            m_ini.trace.push_back(opening + folder);
        }
    }

    void NoSceneFolder()
    {
        m_ini.trace.emplace_back(
            "POVRay Library_Path(0)= NULL (gcVSG.ApplicationState.ScenePath=\"\")");
    }

    PovRayIni Take() { return std::move(m_ini); }

private:
    PovRayIni m_ini;
};

}  // namespace

std::string BitmapOf(const std::string& sceneFile)
{
    constexpr std::size_t kExtension = 3;
    return sceneFile.substr(0, sceneFile.size() - std::min(kExtension, sceneFile.size())) + "bmp";
}

PovRayIni IniOf(const PovRaySettings& settings)
{
    if (!IsOneLine(settings.sceneFile)) {
        throw Error(Status::InvalidArgument,
                    "a raytracer cannot work in a temporary folder whose name has a line break");
    }
    IniWriter ini;
    ini.Line("Input_File_Name", settings.sceneFile);
    ini.Line("Width", std::to_string(settings.width));
    ini.Line("Height", std::to_string(settings.height));
    ini.Line("Output_File_Type", "S");
    ini.Line("Quality", "11");
    ini.Antialias(settings.antialias);
    ini.Line("Display", "off");
    if (settings.sceneFolder.empty()) {
        ini.NoSceneFolder();
    } else {
        ini.Folder(0, settings.sceneFolder);
    }
    for (std::size_t i = 0; i < std::min(settings.folders.size(), kMostFolders); ++i) {
        ini.Folder(i + 1, settings.folders[i]);
    }
    ini.Line("Output_File_Name", BitmapOf(settings.sceneFile));
    return ini.Take();
}

CorvexDB::CommandLine PovRayCommandLine(const std::string& program, const std::string& iniFile)
{
    return {program + " /exit /nr " + " " + iniFile, program, {"/exit", "/nr", iniFile}, {}};
}

}  // namespace CorvexMaterial
