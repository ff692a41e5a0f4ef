#include "RecordingPlatform.h"

#include "WarningPresenter.h"

#include <QDialogButtonBox>

namespace {

class Warnings : public testing::Test {
protected:
    Warnings() { window.show(); }

    void Ask(const QString& key = "Bumpmapping")
    {
        presenter.Present("Corvex", "Bumpmapping is not supported.", key);
        QCoreApplication::processEvents();
    }
    QList<QDialog*> Open()
    {
        QList<QDialog*> open;
        for (auto* dialog : window.findChildren<QDialog*>()) {
            if (dialog->isVisible()) {
                open << dialog;
            }
        }
        return open;
    }
    void Untick(QDialog& dialog)
    {
        auto* box = dialog.findChild<QCheckBox*>("continueToReceive");
        ASSERT_TRUE(box->isChecked());
        box->click();
    }

    CorvexTest::CallLog log;
    CorvexTest::RecordingStore store{log};
    QWidget window;
    studio::WarningPresenter presenter{store, window};
};

TEST_F(Warnings, ClosingInAnyWayKeepsTheChoice)
{
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) {
            dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
        },
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); }};
    for (const auto& close : ways) {
        store.PutTip("Bumpmapping", "1");
        Ask();
        ASSERT_EQ(Open().size(), 1);
        Untick(*Open().front());
        close(*Open().front());
        EXPECT_EQ(store.GetTip("Bumpmapping"), "0");
        Ask();
        EXPECT_TRUE(Open().empty());
    }
}

TEST_F(Warnings, EachIsThereOnceAndClosingTheWindowKeepsItsChoice)
{
    Ask("Bumpmapping");
    Ask("Bumpmapping");
    Ask("MaterialExtended");
    ASSERT_EQ(Open().size(), 2);
    Untick(*Open().front());
    presenter.CloseAll();
    EXPECT_EQ(store.GetTip("Bumpmapping"), "0");
    EXPECT_EQ(store.GetTip("MaterialExtended"), "1");
}

TEST_F(Warnings, DoNotLieOnWhatTheUserDoesNext)
{
    Ask();
    ASSERT_EQ(Open().size(), 1);
    Untick(*Open().front());
    QTest::mouseClick(&window, Qt::LeftButton);
    EXPECT_TRUE(Open().empty());
    EXPECT_EQ(store.GetTip("Bumpmapping"), "0");
}

TEST_F(Warnings, TheHintForADialogIsFirstShownOverIt)
{
    presenter.Present("Corvex", "These attributes only apply when raytracing.", "MaterialExtended");
    EXPECT_TRUE(Open().empty()) << "the dialog would cover it";
    QDialog dialog(&window);
    dialog.open();
    QCoreApplication::processEvents();
    const auto hints = dialog.findChildren<QDialog*>();
    ASSERT_EQ(hints.size(), 1);
    EXPECT_TRUE(hints.front()->isVisible());
}

TEST_F(Warnings, RestoringShowsSilencedOnesAgain)
{
    store.PutTip("Bumpmapping", "0");
    presenter.RestoreAll("Corvex");
    Ask();
    EXPECT_EQ(Open().size(), 1);
    EXPECT_EQ(store.GetTip("MaterialExtended"), std::nullopt);
}

TEST_F(Warnings, AStoreThatFailsDoesNotKeepTheDialogOpen)
{
    Ask();
    ASSERT_EQ(Open().size(), 1);
    log.FailEach("Store.Flush", CorvexTest::Fault::ClassifiedError);
    Open().front()->accept();
    EXPECT_TRUE(Open().empty());
}

}  // namespace
