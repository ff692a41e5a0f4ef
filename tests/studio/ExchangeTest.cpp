#include "StudioRig.h"

#include "FileWork.h"
#include "FileWriting.h"
#include "MaterialExchange.h"
#include "OpenDocument.h"
#include "SceneExchange.h"
#include "SceneRaytracing.h"
#include "SqliteMaterialLibrary.h"

#include <QProgressDialog>
#include <QTableView>

#include <condition_variable>

namespace {

class Exchange : public StudioTest::StartedStudio {
protected:
    void OpenNewLibrary()
    {
        const std::string path = rig.PathOf("Own.cvm").toStdString();
        rig.Host().Materials().CreateLibrary(path);
        rig.Host().Materials().Open(path);
    }
    studio::LibraryFile& Library() { return *rig.Host().Materials().File(); }
    bool Told(const char* text)
    {
        auto& line = rig.Find<QLabel>("miscField");
        return QTest::qWaitFor([&] { return line.text().contains(QLatin1String(text)); }, 30000);
    }
    void SaveBackUntilAsked(std::vector<bool> answers)
    {
        const std::size_t asked = rig.log.CountOf("Prompts.AskYesNo");
        rig.prompts.answers = {answers.begin(), answers.end()};
        rig.Find<QAction>("saveBack").trigger();
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return rig.log.CountOf("Prompts.AskYesNo") > asked; }, 30000));
        rig.AwaitFiles();
    }
};

TEST_F(Exchange, BringsMaterialsInAndOutWithAReport)
{
    OpenNewLibrary();
    const QString file =
        rig.files.Write("two.mtl", "newmtl Oak\nKd 0.5 0.3 0.1\nNi 1.5\nd 0.5\nTf 1 0 0\n"
                                   "newmtl Elm\nKd 1 1 1\n");
    rig.Window().Exchange().Import(file);
    ASSERT_EQ(Library().Count(), 2);
    EXPECT_EQ(Library().NameAt(0), "Oak");
    EXPECT_FALSE(Library().ThumbnailAt(0).empty());

    EXPECT_EQ(rig.Find<QLabel>("summary").text(),
              QStringLiteral("2 materials: 3 properties mapped, 0 approximated, 2 dropped."));
    auto& rows = *rig.Find<QTableView>("rows").model();
    EXPECT_EQ(rows.rowCount(), 2);
    rig.Find<QCheckBox>("showAll").click();
    EXPECT_EQ(rows.rowCount(), 5);
    rig.Find<QDialogButtonBox>("buttons").button(QDialogButtonBox::Close)->click();
    EXPECT_EQ(rig.Window().LibraryHistory().count(), 1);
    EXPECT_TRUE(rig.Window().LibraryHistory().undoText().contains("2"));
    rig.Window().LibraryHistory().undo();
    EXPECT_EQ(Library().Count(), 0);
    rig.Window().LibraryHistory().redo();
    EXPECT_EQ(Library().Count(), 2);

    const QString out = rig.PathOf("out.mtlx");
    rig.Window().Exchange().Export(out);
    rig.AwaitFiles();
    EXPECT_TRUE(QFile::exists(out));
    rig.Window().Exchange().Import(out);
    EXPECT_EQ(Library().Count(), 4);
    EXPECT_EQ(Library().NameAt(3), "Elm");
}

TEST_F(Exchange, PicturesComeBesideTheLibrary)
{
    OpenNewLibrary();
    const QString picture = rig.files.Save("dot.png", Qt::red);
    rig.Window().Exchange().Import(rig.files.Write(
        "dot.gltf",
        "{\"asset\":{\"version\":\"2.0\"},\"textures\":[{\"source\":0}],\"images\":[{\"uri\":"
        "\"data:image/png;base64," +
            CorvexTest::ContentOf(picture).toBase64() +
            "\"}],\"materials\":[{\"name\":\"Dot\",\"pbrMetallicRoughness\":"
            "{\"baseColorTexture\":{\"index\":0}}}]}"));
    EXPECT_TRUE(QFile::exists(rig.PathOf("Textures/Dot.png")));
}

TEST_F(Exchange, ASceneIsExportedWithWhatItGoesWithout)
{
    CorvexDB::udtMaterial bumpy;
    bumpy.Textures.bump = "/b.png";
    rig.Shape(0)->SetApplied(studio::WholeMaterial(bumpy));
    rig.Window().Raytracing().Export(rig.PathOf("scene.rib"));
    rig.AwaitFiles();
    EXPECT_TRUE(rig.Find<QLabel>("miscField").text().contains("does not show: bump maps"));
}

TEST_F(Exchange, TheSelectionAloneIsExportedAndCanBeOpened)
{
    auto& action = rig.Find<QAction>("exportSelection");
    EXPECT_FALSE(action.isEnabled());
    rig.Window().Selected().Set({rig.Shape(1)});
    EXPECT_TRUE(action.isEnabled());
    const std::string name = rig.Shape(1)->Name();
    const QString file = rig.PathOf("one.glb");
    rig.Window().Handing().Export(studio::SceneExchange::What::Selection, file);
    rig.AwaitFiles();
    EXPECT_TRUE(rig.Find<QLabel>("summary").text().startsWith("1 material: "));
    rig.Find<QDialogButtonBox>("buttons").button(QDialogButtonBox::Close)->click();
    EXPECT_TRUE(rig.Find<QLabel>("miscField").text().contains("one.glb was written."));
    rig.Open(file);
    ASSERT_EQ(rig.Window().Scene().All().size(), 1U);
    EXPECT_EQ(rig.Shape(0)->Name(), name);
    rig.Window().Handing().Export(studio::SceneExchange::What::Scene, rig.PathOf("no/such/a.obj"));
    rig.AwaitFiles();
    EXPECT_EQ(rig.log.CountOf("Prompts.Show"), 1U);
}

/// A job that does nothing until it is stopped.
void WaitForStop(const std::stop_token& stop)
{
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable_any().wait(lock, stop, [] { return false; });
    CorvexMaterial::ThrowIfStopped(stop);
}

TEST_F(Exchange, WhatIsEditedMeanwhileIsNotWritten)
{
    const QString file = rig.PathOf("before.glb");
    rig.Select({0});
    rig.Window().Handing().Export(studio::SceneExchange::What::Selection, file);
    rig.Type("txtEmissive", "77");
    rig.AwaitFiles();
    EXPECT_TRUE(rig.Window().isWindowModified());
    EXPECT_EQ(rig.Shape(0)->Material().Emissive, 77);
    rig.Open(file);
    EXPECT_NE(rig.Shape(0)->Material().Emissive, 77);
    // The program ends while something is written.
    rig.Window().Work().Start("Writing...", WaitForStop, [] { FAIL(); });
}

TEST_F(Exchange, WritingIsCancelledAndTheWindowClosesBehindIt)
{
    studio::FileWork& work = rig.Window().Work();
    work.Start("Writing...", WaitForStop, [] { FAIL(); });
    work.Start("Another...", WaitForStop, [] { FAIL(); });
    EXPECT_EQ(rig.log.CountOf("Prompts.Show"), 1U);
    auto& progress = *rig.Window().findChild<QProgressDialog*>();
    EXPECT_TRUE(QTest::qWaitFor([&] { return progress.isVisible(); }));
    CorvexTest::Click(*progress.findChild<QPushButton*>());
    rig.AwaitFiles();
    EXPECT_TRUE(rig.Find<QLabel>("miscField").text().contains("Nothing was written"));

    work.Start("Writing...", WaitForStop, [] { FAIL(); });
    EXPECT_FALSE(rig.Window().close());
    rig.Window().QuitUnasked();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !rig.Window().isVisible(); }));
}

TEST_F(Exchange, AnOpenedModelHasTheSameReport)
{
    rig.files.Write("two.mtl", "newmtl Oak\nKd 0.5 0.3 0.1\nNi 1.5\nd 0.5\nTf 1 0 0\n"
                               "newmtl Elm\nKd 1 1 1\n");
    rig.Open(rig.files.Write("two.obj", "mtllib two.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"
                                        "usemtl Oak\nf 1 2 3\n"));
    EXPECT_TRUE(rig.Find<QLabel>("miscField").text().contains("0 approximated, 2 dropped."));
    rig.Find<QAction>("lastReport").trigger();
    EXPECT_EQ(rig.Find<QTableView>("rows").model()->rowCount(), 2);
}

TEST_F(Exchange, AnOpenedModelGetsItsMaterialsBackOnceTheUserAgrees)
{
    auto& saveBack = rig.Find<QAction>("saveBack");
    EXPECT_FALSE(saveBack.isEnabled());
    const QString library = rig.files.Write("a.mtl", "newmtl Oak\nKd 0 1 0\nown 1\n");
    rig.Open(rig.files.Write("a.obj", "mtllib a.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"
                                      "usemtl Oak\nf 1 2 3\n"));
    EXPECT_EQ(saveBack.text(), "Save &Back into \"a.obj\"...");
    rig.Select({0});
    rig.Press("chkDoubleSided");
    rig.Type("txtSpecular", "50");

    SaveBackUntilAsked({});
    EXPECT_TRUE(CorvexTest::ContentOf(library).contains("Kd 0 1 0\nown 1\n"));
    EXPECT_THAT(rig.log.Calls().back().detail, testing::HasSubstr("a.mtl"));
    SaveBackUntilAsked({true});
    EXPECT_EQ(CorvexTest::ContentOf(library), "newmtl Oak\nKd 0 1 0\nown 1\nKs 0.5 0.5 0.5\n");
    EXPECT_TRUE(Told("saved back"));

    rig.Window().ResetScene();
    EXPECT_FALSE(saveBack.isEnabled());
}

TEST_F(Exchange, AReopenedDocumentKnowsTheModelThatItWasSavedBackInto)
{
    const QString library = rig.files.Write("a.mtl", "newmtl Oak\nKd 0 1 0\nown 1\n");
    rig.Open(rig.files.Write("a.obj", "mtllib a.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\n"
                                      "usemtl Oak\nf 1 2 3\n"));
    studio::OpenDocument& document = rig.Window().Document();
    const QString file = rig.PathOf("a.corvex");
    const auto shine = [this](const char* specular) {
        rig.Select({0});
        rig.Type("txtSpecular", specular);
    };
    shine("50");
    document.SaveAs(file);
    document.Open(file);
    SaveBackUntilAsked({true});
    EXPECT_EQ(CorvexTest::ContentOf(library), "newmtl Oak\nKd 0 1 0\nown 1\nKs 0.5 0.5 0.5\n");
    EXPECT_TRUE(document.IsModified()) << "its file knows the model as it was";
    document.Save();
    document.Open(file);
    rig.Trigger("Save Back into \"a.obj\"...");
    EXPECT_TRUE(Told("has these materials already"));

    rig.files.Write("a.mtl", "newmtl Oak\nKd 0 1 0\nKs 0 0 0\n");
    EXPECT_TRUE(Told("a.mtl has changed"));
    shine("70");
    SaveBackUntilAsked({true});  // to reload
    EXPECT_TRUE(Told("Kept: 1"));
    SaveBackUntilAsked({true});
    EXPECT_EQ(CorvexTest::ContentOf(library), "newmtl Oak\nKd 0 1 0\nKs 0.7 0.7 0.7\n");
    document.Save();
}

TEST_F(Exchange, DamagedEntriesKeepNoOtherFromBeingWritten)
{
    OpenNewLibrary();
    studio::NewEntry broken = studio::EntryOfMaterial({"Broken", {}}, "/");
    broken.json = "{";
    Library().Add(broken);
    rig.Window().Exchange().Export(rig.PathOf("none.mtl"));
    EXPECT_FALSE(QFile::exists(rig.PathOf("none.mtl")));
    Library().Add(studio::EntryOfMaterial({"Good", {}}, "/"));
    rig.Window().Exchange().Export(rig.PathOf("rest.mtl"));
    rig.AwaitFiles();
    EXPECT_TRUE(CorvexTest::ContentOf(rig.PathOf("rest.mtl")).contains("newmtl Good"));
    auto& rows = *rig.Find<QTableView>("rows").model();
    EXPECT_EQ(rows.index(0, 0).data().toString(), "Broken");
    EXPECT_EQ(rig.log.CountOf("Prompts.Show"), 1U);
}

TEST_F(Exchange, RefusesWithAMessageAndLeavesTheLibrary)
{
    OpenNewLibrary();
    rig.Window().Exchange().Import(rig.files.Write("none.mtl", "nothing"));
    rig.Window().Exchange().Export(rig.PathOf("no/folder/x.gltf"));
    rig.AwaitFiles();
    EXPECT_EQ(Library().Count(), 0);
    EXPECT_EQ(rig.log.CountOf("Prompts.Show"), 2U);
}

}  // namespace
