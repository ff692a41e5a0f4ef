#include "PovRayJob.h"
#include "RecordingData.h"
#include "RenderManJob.h"
#include <CorvexMaterial/Status.h>

namespace {

using namespace CorvexMaterial;

class PovRayIni : public ::testing::Test {
protected:
    PovRayIni()
    {
        state.scenePath = "/home/me/scenes/";
        state.searchFolders = {"/media/Textures/", "/media/"};
    }

    RenderStart Start() { return PovRayStart(task, state); }
    std::string Ini() { return Start().settings; }

    CorvexTest::CallLog log;
    CorvexTest::RecordingApplicationState state{log};
    RenderTask task{"/opt/my programs/povray", "/tmp/~CVX17.pov", {},
                    "/tmp/a b/~CVX17.ini",     "/tmp/~CVX17.bmp", {320, 240}};
};

TEST_F(PovRayIni, IsWrittenLineByLine)
{
    const RenderStart ini = Start();
    EXPECT_EQ(ini.settings, "Input_File_Name=/tmp/~CVX17.pov\n"
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

TEST_F(PovRayIni, TakesAntialiasDepthFromTheChoice)
{
    const auto antialias = [this](std::int32_t choice) {
        task.antialias = choice;
        const std::string text = Ini();
        const std::size_t start = text.find("Antialias=");
        return text.substr(start, text.find("Display") - start);
    };
    EXPECT_EQ(antialias(0), "Antialias=off\n");
    EXPECT_EQ(antialias(1), "Antialias=on\nAntialias_Depth=2\n");
    for (const std::int32_t other : {2, 3, -1}) {
        EXPECT_EQ(antialias(other), "Antialias=on\nAntialias_Depth=4\n");
    }
}

TEST_F(PovRayIni, WithoutASceneFolderSearchesTheListAlone)
{
    state.scenePath.clear();
    state.searchFolders = {"/media/"};
    const RenderStart ini = Start();
    EXPECT_NE(ini.settings.find("Display=off\nLibrary_Path=/media\nOutput"), std::string::npos);
    EXPECT_EQ(ini.trace, (std::vector<std::string>{
                             "POVRay Library_Path(0)= NULL (gcVSG.ApplicationState.ScenePath=\"\")",
                             "POVRay Library_Path(1)=/media/"}));
}

TEST_F(PovRayIni, SearchesNineteenFoldersAtMost)
{
    state.searchFolders.clear();
    for (int i = 0; i < 25; ++i) {
        state.searchFolders.push_back("/media/" + std::to_string(i) + "/");
    }
    const RenderStart ini = Start();
    EXPECT_NE(ini.settings.find("Library_Path=/media/18\n"), std::string::npos);
    EXPECT_EQ(ini.settings.find("Library_Path=/media/19"), std::string::npos);
    EXPECT_EQ(ini.trace.size(), 20U);
}

TEST_F(PovRayIni, CutsASeparatorAndNeverALetter)
{
    for (const auto& [folder, line] :
         {std::pair{"/media/x", "Library_Path=/media/x\n"}, std::pair{"/", "Library_Path=/\n"},
          std::pair{"C:\\Media\\", "Library_Path=C:\\Media\n"}}) {
        state.searchFolders = {folder};
        EXPECT_NE(Ini().find(line), std::string::npos) << folder;
    }
}

TEST_F(PovRayIni, NoNameAddsALine)
{
    const std::string hostile[] = {"/a\nCommand=rm/", "/b\r\nX=1/", "/c\rY=2/",
                                   std::string("/d\0/", 4)};
    for (const std::string& name : hostile) {
        task.scene = "/tmp/~CVX17.pov";
        state.scenePath = name;
        state.searchFolders = {name, "/media/"};
        const RenderStart ini = Start();
        EXPECT_EQ(std::ranges::count(ini.settings, '\n'), 9);
        EXPECT_EQ(ini.settings.find('\r'), std::string::npos);
        EXPECT_NE(ini.settings.find("Library_Path=/media\n"), std::string::npos);
        for (const std::string& line : ini.trace) {
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        }
        task.scene = name + "x.pov";
        EXPECT_THROW(static_cast<void>(Start()), Error);
    }
    task.scene = "/tmp/~CVX17.pov";
    state.searchFolders = {"/with \"quotes\" & # blanks; ünd Ω/"};
    EXPECT_NE(Ini().find("Library_Path=/with \"quotes\" & # blanks; ünd Ω\nOutput_File_Name"),
              std::string::npos);
}

TEST_F(PovRayIni, IsNamedOnACommandLineThatNeedsNoQuotes)
{
    const CorvexDB::CommandLine povRay = Start().command;
    EXPECT_EQ(povRay.text, "/opt/my programs/povray /exit /nr  /tmp/a b/~CVX17.ini");
    EXPECT_EQ(povRay.program, "/opt/my programs/povray");
    EXPECT_EQ(povRay.arguments, (std::vector<std::string>{"/exit", "/nr", "/tmp/a b/~CVX17.ini"}));

    task.program = "R";
    task.exported = "S";
    const CorvexDB::CommandLine renderMan = RenderManStart(task, state).command;
    EXPECT_EQ(renderMan.text, "R -res 320 240 S");
    EXPECT_EQ(renderMan.arguments, (std::vector<std::string>{"-res", "320", "240", "S"}));
}

}  // namespace
