#include "OpenDocument.h"
#include "SourceReload.h"
#include "StudioRig.h"

#include <QFileDialog>

namespace {

class Reloading : public StudioTest::StartedStudio {
protected:
    Reloading()
    {
        WriteModel("o Lid\nf 1 2 3\no Leg\nf 1 3 4\n");
        rig.Open(rig.PathOf("m.obj"));
        rig.Select({1});
        rig.Choose("cboColor", "Bronze");
    }

    void WriteModel(const char* shapes)
    {
        rig.files.Write("m.obj",
                        QByteArray("v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 2 0\nv 0 0 9\n") + shapes);
    }
    void Reload(const char* told)
    {
        rig.Trigger("Reload Model");
        auto& line = rig.Find<QLabel>("miscField");
        ASSERT_TRUE(QTest::qWaitFor([&] { return line.text().contains(told); }, 30000))
            << line.text().toStdString();
    }
    std::vector<std::string> Questions() const { return rig.log.DetailsOf("Prompts.AskYesNo"); }
    std::vector<std::string> Names()
    {
        std::vector<std::string> names;
        for (const auto& shape : rig.Window().Scene().All()) {
            names.push_back(shape->Name());
        }
        return names;
    }
};

TEST_F(Reloading, IsSeenComingKeepsMaterialsAndIsTakenBack)
{
    const auto bronze = rig.Shape(1)->Applied();
    const auto before = rig.Window().Scene().All();
    WriteModel("o New\nf 1 2 5\no Foot\nf 1 3 4\no Lid\nf 1 2 3\nf 1 3 5\n");
    auto& line = rig.Find<QLabel>("miscField");
    EXPECT_TRUE(QTest::qWaitFor([&] { return line.text().contains("has changed"); }, 30000));
    Reload("Kept: 2 (renamed: 1), added: 1, removed: 0");
    EXPECT_THAT(Names(), testing::ElementsAre("New", "Foot", "Lid"));
    EXPECT_EQ(rig.Shape(1)->Applied(), bronze);
    EXPECT_EQ(rig.Window().Selected().Latest(), rig.Shape(1));
    EXPECT_EQ(studio::StateOf(rig.Window().Document().Source()), studio::SourceState::Unchanged);
    EXPECT_TRUE(rig.prompts.shown.empty());

    rig.Trigger("Undo Reload m.obj");
    EXPECT_EQ(rig.Window().Scene().All(), before);
    History().undo();
    EXPECT_NE(rig.Shape(1)->Applied(), bronze);
    History().redo();
    History().redo();
    EXPECT_EQ(rig.Shape(1)->Applied(), bronze);
}

TEST_F(Reloading, AsksBeforeShapesGo)
{
    WriteModel("o Leg\nf 1 3 4\n");
    rig.Trigger("Reload Model");
    ASSERT_TRUE(QTest::qWaitFor([&] { return Questions().size() == 1; }, 30000));
    EXPECT_THAT(Questions().front(), testing::HasSubstr("\nLid\n"));
    EXPECT_THAT(Names(), testing::ElementsAre("Lid", "Leg"));
    rig.prompts.answers = {true};
    Reload("removed: 1");
    EXPECT_THAT(Names(), testing::ElementsAre("Leg"));
}

TEST_F(Reloading, LooksForAModelThatIsGone)
{
    const QString elsewhere = rig.PathOf("elsewhere.obj");
    QFile::rename(rig.PathOf("m.obj"), elsewhere);
    QString title;
    QTimer answering;
    QObject::connect(&answering, &QTimer::timeout, [&] {
        if (auto* chooser = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            title = chooser->windowTitle();
            chooser->selectFile(elsewhere);
            static_cast<QDialog*>(chooser)->accept();
        }
    });
    answering.start(5);
    Reload("Kept: 2");
    EXPECT_EQ(title, "Find m.obj");
    EXPECT_EQ(rig.Window().Document().Source().path, elsewhere.toStdString());
}

}  // namespace
