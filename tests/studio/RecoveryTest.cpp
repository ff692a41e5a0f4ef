#include "StudioRig.h"

#include "OpenDocument.h"
#include "RecoveryDialog.h"

#include <QTreeWidget>

namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Recovery : public StudioTest::StartedStudio {
protected:
    void Dress(std::size_t shape, const char* colour)
    {
        rig.Select({shape});
        rig.Choose("cboColor", colour);
    }
    /// As the end of the desktop's session does: nobody is asked.
    void EndUnasked()
    {
        rig.Window().QuitUnasked();
        rig.Window().close();
        rig.Stop();
    }
    void StartAgain()
    {
        rig.Start();
        rig.Window().OfferRecovery();
    }
    studio::RecoveryDialog* Dialog() { return rig.Window().findChild<studio::RecoveryDialog*>(); }
    void Press(const char* button)
    {
        CorvexTest::Click(*Dialog()->findChild<QPushButton*>(button));
        QTest::qWait(0);
    }
    void Press(Qt::Key key)
    {
        QTest::keyClick(Dialog(), key);
        QTest::qWait(0);
    }
    [[nodiscard]] QStringList Files(const char* folder) const
    {
        return QDir(rig.PathOf(QString("state/") + folder)).entryList(QDir::Files);
    }
};

TEST_F(Recovery, OffersWhatWasNotSavedAndOpensItModified)
{
    Dress(0, "Bronze");
    Dress(1, "Gold");
    const auto wanted = rig.Shape(1)->Material();
    EndUnasked();
    StartAgain();
    ASSERT_NE(Dialog(), nullptr);
    auto& works = *Dialog()->findChild<QTreeWidget*>("works");
    ASSERT_EQ(works.topLevelItemCount(), 1);
    EXPECT_EQ(works.topLevelItem(0)->text(2), "2");
    Press(Qt::Key_Escape);
    EXPECT_NE(rig.Shape(1)->Material(), wanted);
    rig.Trigger("Recover Unsaved Work...");
    Press("open");
    EXPECT_EQ(rig.Shape(1)->Material(), wanted);
    EXPECT_TRUE(rig.Window().Document().IsModified());
    EndUnasked();
    StartAgain();
    ASSERT_NE(Dialog(), nullptr) << "what was recovered is not saved yet";
    EXPECT_EQ(Dialog()->findChild<QTreeWidget*>("works")->topLevelItem(0)->text(2), "2");
    Press("discard");
    Press(Qt::Key_Return);
    EXPECT_EQ(Dialog(), nullptr);
    EXPECT_THAT(Files("recovery"), IsEmpty());
}

TEST_F(Recovery, ComesBackInTheDocumentAndIsOverOnceSaved)
{
    const QString file = rig.PathOf("scene.corvex");
    rig.Window().Document().SaveAs(file);
    Dress(0, "Bronze");
    const auto wanted = rig.Shape(0)->Material();
    rig.Trigger("Keep Textures in Document");
    EndUnasked();
    StartAgain();
    Press("open");
    EXPECT_EQ(rig.Window().Document().Path(), file);
    EXPECT_EQ(rig.Shape(0)->Material(), wanted);
    EXPECT_EQ(rig.Window().Document().Textures(), studio::TexturePlace::Embedded);
    EXPECT_TRUE(rig.Window().Document().IsModified());
    rig.Window().Document().Save();
    EXPECT_THAT(Files("backups"), SizeIs(1)) << "as it was before this run";
    Dress(0, "Gold");
    QByteArray edits;
    QObject::connect(&rig.Window().Document(), &studio::OpenDocument::AboutToSave, [&] {
        edits = CorvexTest::ContentOf(rig.PathOf("state/recovery/" + Files("recovery").value(0)));
    });
    rig.Window().Document().Save();
    EXPECT_THAT(Files("backups"), SizeIs(1));
    Dress(0, "Black");
    rig.Stop();
    // As if killed between the save and the removal of what it made needless.
    rig.files.Write("state/recovery/left.edits", edits);
    StartAgain();
    EXPECT_EQ(Dialog(), nullptr) << "whoever quits was asked";
    EXPECT_THAT(Files("recovery"), IsEmpty());
}

TEST_F(Recovery, OpensTheModelAgain)
{
    const QString home = QDir::currentPath();
    rig.Open(QDir().relativeFilePath(QStringLiteral(MODEL_FOLDER "/still-life.obj")));
    Dress(0, "Bronze");
    const auto wanted = rig.Shape(0)->Material();
    EndUnasked();
    QDir::setCurrent(QDir::rootPath());
    StartAgain();
    QSignalSpy opened(&rig.Window(), &studio::MainWindow::SceneOpened);
    Press("open");
    ASSERT_TRUE(opened.count() > 0 || opened.wait(30000));
    QDir::setCurrent(home);
    EXPECT_EQ(rig.Shape(0)->Material(), wanted);
    EXPECT_TRUE(rig.Window().Document().IsModified());
    EXPECT_TRUE(rig.prompts.shown.empty());
    EndUnasked();
}

TEST_F(Recovery, FollowsAModelThatWasReadAgain)
{
    const auto write = [this](const char* shapes) {
        rig.files.Write("m.obj", QByteArray("v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 2 0\n") + shapes);
    };
    write("o Lid\nf 1 2 3\no Leg\nf 1 3 4\n");
    rig.Open(rig.PathOf("m.obj"));
    Dress(1, "Bronze");
    const auto wanted = rig.Shape(1)->Material();
    write("o New\nf 1 2 4\no Lid\nf 1 2 3\no Leg\nf 1 3 4\n");
    rig.Trigger("Reload Model");
    ASSERT_TRUE(QTest::qWaitFor([&] { return rig.Window().Scene().All().size() == 3; }, 30000));
    EndUnasked();
    StartAgain();
    QSignalSpy opened(&rig.Window(), &studio::MainWindow::SceneOpened);
    Press("open");
    ASSERT_TRUE(opened.count() > 0 || opened.wait(30000));
    EXPECT_EQ(rig.Shape(2)->Material(), wanted);
    EXPECT_NE(rig.Shape(1)->Material(), wanted);
    EXPECT_TRUE(rig.prompts.shown.empty()) << "it has not changed since";
    EndUnasked();
}

}  // namespace
