#include "host/Status.h"
#include "raytrace/PovRayJob.h"
#include "raytrace/RenderManJob.h"
#include "tests/support/Testing.h"

namespace {

using namespace CorvexMaterial;

PovRaySettings Usual()
{
    return {"/tmp/~CVX17.pov", 320, 240, 0, "/home/me/scenes/", {"/media/Textures/", "/media/"}};
}

TEST(PovRayIni, IsWrittenLineByLine)
{
    const PovRayIni ini = IniOf(Usual());
    EXPECT_EQ(ini.text, "Input_File_Name=/tmp/~CVX17.pov\n"
                        "Width=320\n"
                        "Height=240\n"
                        "Output_File_Type=S\n"
                        "Quality=11\n"
                        "Antialias=off\n"
                        "Display=off\n"
                        "Library_Path=/home/me/scenes\n"
                        "Library_Path=/media/Textures\n"
                        "Library_Path=/media\n"
                        "Output_File_Name=/tmp/~CVX17.bmp\n");
    EXPECT_EQ(ini.trace, (std::vector<std::string>{"POVRay Library_Path(0)=/home/me/scenes/",
                                                   "POVRay Library_Path(1)=/media/Textures/",
                                                   "POVRay Library_Path(2)=/media/"}));
}

TEST(PovRayIni, TakesAntialiasDepthFromTheChoice)
{
    const auto antialias = [](std::int32_t choice) {
        PovRaySettings settings = Usual();
        settings.antialias = choice;
        const std::string text = IniOf(settings).text;
        const std::size_t start = text.find("Antialias=");
        return text.substr(start, text.find("Display") - start);
    };
    EXPECT_EQ(antialias(0), "Antialias=off\n");
    EXPECT_EQ(antialias(1), "Antialias=on\nAntialias_Depth=2\n");
    for (const std::int32_t other : {2, 3, -1}) {
        EXPECT_EQ(antialias(other), "Antialias=on\nAntialias_Depth=4\n");
    }
}

TEST(PovRayIni, WithoutASceneFolderSearchesTheListAlone)
{
    PovRaySettings settings = Usual();
    settings.sceneFolder.clear();
    settings.folders = {"/media/"};
    const PovRayIni ini = IniOf(settings);
    EXPECT_NE(ini.text.find("Display=off\nLibrary_Path=/media\nOutput"), std::string::npos);
    EXPECT_EQ(ini.trace, (std::vector<std::string>{
                             "POVRay Library_Path(0)= NULL (gcVSG.ApplicationState.ScenePath=\"\")",
                             "POVRay Library_Path(1)=/media/"}));
}

TEST(PovRayIni, SearchesNineteenFoldersAtMost)
{
    PovRaySettings settings = Usual();
    settings.folders.clear();
    for (int i = 0; i < 25; ++i) {
        settings.folders.push_back("/media/" + std::to_string(i) + "/");
    }
    const PovRayIni ini = IniOf(settings);
    EXPECT_NE(ini.text.find("Library_Path=/media/18\n"), std::string::npos);
    EXPECT_EQ(ini.text.find("Library_Path=/media/19"), std::string::npos);
    EXPECT_EQ(ini.trace.size(), 20U);
}

TEST(PovRayIni, CutsASeparatorAndNeverALetter)
{
    for (const auto& [folder, line] :
         {std::pair{"/media/x", "Library_Path=/media/x\n"}, std::pair{"/", "Library_Path=/\n"},
          std::pair{"C:\\Media\\", "Library_Path=C:\\Media\n"}}) {
        PovRaySettings settings = Usual();
        settings.folders = {folder};
        EXPECT_NE(IniOf(settings).text.find(line), std::string::npos) << folder;
    }
}

TEST(PovRayIni, NoNameAddsALine)
{
    const std::string hostile[] = {"/a\nCommand=rm/", "/b\r\nX=1/", "/c\rY=2/",
                                   std::string("/d\0/", 4)};
    for (const std::string& name : hostile) {
        PovRaySettings settings = Usual();
        settings.sceneFolder = name;
        settings.folders = {name, "/media/"};
        const PovRayIni ini = IniOf(settings);
        EXPECT_EQ(std::ranges::count(ini.text, '\n'), 9);
        EXPECT_EQ(ini.text.find('\r'), std::string::npos);
        EXPECT_NE(ini.text.find("Library_Path=/media\n"), std::string::npos);
        for (const std::string& line : ini.trace) {
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        }
        settings = Usual();
        settings.sceneFile = name + "x.pov";
        EXPECT_THROW(static_cast<void>(IniOf(settings)), Error);
    }
    PovRaySettings settings = Usual();
    settings.folders = {"/with \"quotes\" & # blanks; ünd Ω/"};
    EXPECT_NE(IniOf(settings).text.find(
                  "Library_Path=/with \"quotes\" & # blanks; ünd Ω\nOutput_File_Name"),
              std::string::npos);
}

TEST(CommandLines, AreExactAndTheirPartsNeedNoQuotes)
{
    const auto povRay = PovRayCommandLine("/opt/my programs/povray", "/tmp/a b/~CVX17.ini");
    EXPECT_EQ(povRay.text, "/opt/my programs/povray /exit /nr  /tmp/a b/~CVX17.ini");
    EXPECT_EQ(povRay.program, "/opt/my programs/povray");
    EXPECT_EQ(povRay.arguments, (std::vector<std::string>{"/exit", "/nr", "/tmp/a b/~CVX17.ini"}));

    const auto renderMan = RenderManCommandLine({"R", 320, 240, "S"});
    EXPECT_EQ(renderMan.text, "R -res 320 240 S");
    EXPECT_EQ(renderMan.arguments, (std::vector<std::string>{"-res", "320", "240", "S"}));
}

}  // namespace
