#include "CombinedAttributes.h"
#include "CommaLocale.h"
#include "EventLog.h"
#include "LatePrompts.h"
#include "NumberField.h"
#include "OptionsDialog.h"
#include "RecentFiles.h"
#include "RecordingPlatform.h"
#include "SampleFolder.h"
#include "StatusMessage.h"
#include "StudioDesktop.h"
#include "StudioSettings.h"
#include "StudioTables.h"
#include "ThirdRaytracer.h"
#include <CorvexMaterial/QtPlatform.h>
#include <CorvexMaterial/Status.h>

#include <QPlainTextEdit>

namespace {

TEST(NumberFields, AcceptWithinRangeAndDecimals)
{
    struct Row {
        const char* text;
        CorvexCommon::NumericRange range;
        const char* accepted;
    };
    const CorvexTest::CommaLocale commas;
    for (const auto& [text, range, accepted] :
         {Row{"1.5", {0, 0, 10, 2}, "1.50"}, Row{"1,5", {0, 0, 10, 2}, "1.50"},
          Row{" 7 ", {0, 0, 10, 0}, "7"}, Row{"11", {0, 0, 10, 1}, "10.0"},
          Row{"-3", {0, -1, 10, 0}, "-1"}, Row{"", {4, 0, 10, 1}, "4.0"},
          Row{"ten", {4, 0, 10, 0}, "4"}, Row{"nan", {4, 0, 10, 0}, "4"},
          Row{"1e400", {4, 0, 10, 0}, "4"}, Row{"5", {0, 8, 2, 0}, "8"}}) {
        EXPECT_EQ(studio::NumberField().Accept(text, range), accepted) << text;
    }
}

TEST(RaytraceText, HoldsEveryNumberExactlyWhateverTheLocale)
{
    const CorvexTest::CommaLocale commas;
    CorvexDB::cdtRayTraceMaterialAttributes attributes;
    attributes.Brilliance = 0.1F;
    attributes.Metallic = true;
    attributes.ColorPatternColor[2] = {0.25F, 0.5F, 1.0F, 0.0F};
    const std::string text = studio::AttributeText(attributes);
    EXPECT_EQ(text.rfind("Brilliance=0.1;Reflection=0;", 0), 0U);
    EXPECT_NE(text.find(";Metallic=1;"), std::string::npos);
    EXPECT_NE(text.find(";ColorPatternColor2=0.25,0.5,1,0;"), std::string::npos);
}

TEST(EventLogFile, StaysBoundedAndKeepsOneLinePerEvent)
{
    const QTemporaryDir folder;
    studio::EventLog log(folder.filePath("new/folder"), 2000);
    for (int i = 0; i < 500; ++i) {
        log.RecordEvent("line one\nforged line " + std::to_string(i));
    }
    const QString path = folder.filePath("new/folder/events.log");
    EXPECT_LE(QFileInfo(path).size(), 2000);
    EXPECT_LE(QFileInfo(path + ".1").size(), 2000);
    EXPECT_TRUE(QFileInfo::exists(path + ".1"));
    const QList<QByteArray> lines = CorvexTest::ContentOf(path).trimmed().split('\n');
    for (const QByteArray& line : lines) {
        EXPECT_TRUE(line.contains(" line one forged line ")) << line.constData();
    }
    EXPECT_TRUE(lines.last().endsWith("499"));
}

TEST(EventLogFile, AFolderThatCannotBeMadeIsNoTrouble)
{
    const CorvexTest::SampleFolder folder;
    studio::EventLog log(folder.Write("state", "a file"));
    EXPECT_NO_THROW(log.RecordEvent("lost"));
}

TEST(FailingSettings, AreToldTheControlOnceAndTheStudioEachTime)
{
    CorvexTest::CallLog log;
    CorvexTest::RecordingStore store(log);
    std::set<std::string> told;
    studio::ToldSettings settings(store, told, studio::ToldSettings::Fails::Once);
    studio::ToldSettings studios(store, told, studio::ToldSettings::Fails::Always);
    log.FailEach("Store.Flush", CorvexTest::Fault::ClassifiedError);
    EXPECT_THROW(settings.Flush("Corvex"), CorvexMaterial::Error);
    EXPECT_NO_THROW(settings.Flush("Corvex"));
    EXPECT_THROW(studios.Flush("Corvex"), CorvexMaterial::Error);
    log.Clear();
    settings.Write({"Corvex", "Studio", "Key"}, "value");
    EXPECT_NO_THROW(settings.Flush("Corvex"));
    EXPECT_EQ(settings.Read({"Corvex", "Studio", "Key"}), "value");
}

TEST(ControlLibraryTest, FolderHoldsTheLibrary)
{
    CorvexMaterial::QtPlatform platform;
    const QString folder = QString::fromStdString(platform.Get().library.Folder());
    EXPECT_TRUE(QFile::exists(folder + "/libCorvexMaterial.so")) << folder.toStdString();
}

TEST(StatusMessages, WhatLastsComesBehindWhatIsSaid)
{
    studio::StatusMessage line(nullptr);
    line.Show("said");
    line.SetLasting("lasts");
    EXPECT_EQ(line.text(), "said");
    line.Show({});
    EXPECT_EQ(line.text(), "lasts");
}

TEST(LateMessages, WaitForTheWindowAndThenComeAtOnce)
{
    CorvexTest::CallLog log;
    CorvexTest::RecordingPrompts shown(log);
    studio::LatePrompts prompts(shown);
    CorvexMaterial::Message message;
    prompts.Show(message);
    prompts.Begin();
    EXPECT_TRUE(shown.shown.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(shown.shown.size(), 1U);
    prompts.Show(message);
    EXPECT_EQ(shown.shown.size(), 2U);
}

class OwnSettings : public testing::Test {
protected:
    CorvexTest::CallLog log;
    CorvexTest::RecordingStore store{log};
    CorvexTest::RecordingProcesses processes{log};
    CorvexTest::RecordingChoosers choosers{log};
    studio::StudioSettings settings{store, "Corvex"};
};

TEST_F(OwnSettings, RecentFilesAreEachThereOnceWhateverTheirNames)
{
    studio::RecentFiles recent(settings);
    for (const char* file : {"/a, b;c.obj", "/d.obj", "/a, b;c.obj"}) {
        recent.Add(QString::fromUtf8(file));
    }
    EXPECT_EQ(recent.Files(), QStringList({"/a, b;c.obj", "/d.obj"}));
}

TEST(CustomFieldNames, TakeTheirValuesAlongWhenTheirLinesChange)
{
    struct Row {
        const char* before;
        const char* after;
        studio::FieldMoves moves;
        int notes;  ///< on values that are called otherwise
    };
    for (const auto& [before, after, moves, notes] :
         {Row{"A\nB", "A\nB\nC", studio::kNoFieldMoves, 0},
          Row{"A\nB", "B\nA", {1, 0, 2, 3, 4, 5}, 0},
          Row{"A\nB\nC", "New\nA\nB\nC", {3, 0, 1, 2, 4, 5}, 0},
          Row{"A\nB", "A\nMaker", studio::kNoFieldMoves, 1},
          Row{"A\nB", "B", {1, 0, 2, 3, 4, 5}, 1},
          Row{"A\nA\nB", "B\nA\nA", {2, 0, 1, 3, 4, 5}, 0}}) {
        const QStringList old = QString(before).split('\n');
        const QStringList names = QString(after).split('\n');
        EXPECT_EQ(studio::MovesOf(old, names), moves) << after;
        EXPECT_EQ(studio::NoteOn(moves, old, names).split('\n', Qt::SkipEmptyParts).size(), notes)
            << after;
    }
}

TEST_F(OwnSettings, NamesOfCustomFieldsKeepTheirPlaces)
{
    studio::OptionsDialog first(settings, processes, choosers);
    first.findChild<QPlainTextEdit*>("customFields")->setPlainText("\nSupplier");
    first.Store();
    studio::OptionsDialog(settings, processes, choosers).Store();
    EXPECT_EQ(studio::StudioCustomFields(settings).GetCustomMaterialFieldNames(),
              (std::vector<std::string>{"", "Supplier"}));
}

void WriteThird(studio::TextStream& out, const studio::RaytraceScene& scene,
                studio::RaytraceImages& /*images*/)
{
    out << "shapes " << scene.frame.items.size() << '\n';
    out.Finish();
}

TEST_F(OwnSettings, AThirdRaytracerIsChosenAndWorksWithItsRowAndItsWriter)
{
    const auto& rows = CorvexTest::RowsWithThird();
    std::vector<studio::SceneWriter> writers(studio::SceneWriters().begin(),
                                             studio::SceneWriters().end());
    writers.push_back({&rows.back(), {"png", ".png", "png", nullptr}, WriteThird});
    const CorvexTest::SampleFolder folder;
    const QString program = folder.WriteScript("program", CorvexTest::kThirdProgram);
    CorvexMaterial::QtPlatform desktop;
    studio::OptionsDialog options(settings, desktop.Get().processes, choosers, nullptr, writers);
    options.findChild<QComboBox*>("raytracer")->setCurrentText("Third");
    options.findChild<QLineEdit*>("thirdProgram")->setText(program);
    options.Store();
    EXPECT_EQ(settings.Number("Raytracer", 0), 2);
    EXPECT_EQ(settings.RaytracerProgram(rows[2].program), program);
    EXPECT_EQ(settings.RaytracerProgram(rows[1].program), "");
    options.findChild<QAbstractButton*>("testThird")->click();
    const auto* status = options.findChild<QLabel*>("thirdStatus");
    EXPECT_TRUE(QTest::qWaitFor([&] { return status->text() == "Third works."; }, 10000));
}

}  // namespace
