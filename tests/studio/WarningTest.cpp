#include "tests/support/RecordingPlatform.h"

#include "studio/app/WarningPresenter.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class Warnings : public testing::Test {
protected:
    Warnings() { window.show(); }

    void Ask(const QString& key = "Bumpmapping")
    {
        presenter.Present("Corvex", "Bumpmapping is not supported.", key);
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

struct Stored {
    const char* name;
    const char* choice;  ///< null: none
    bool shown;
};

class StoredChoice : public Warnings, public testing::WithParamInterface<Stored> {};

TEST_P(StoredChoice, DecidesWhetherTheWarningIsShown)
{
    if (GetParam().choice != nullptr) {
        store.PutTip("Bumpmapping", GetParam().choice);
    }
    Ask();
    EXPECT_EQ(!Open().empty(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Values, StoredChoice,
                         testing::Values(Stored{"Missing", nullptr, true}, Stored{"One", "1", true},
                                         Stored{"Zero", "0", false}, Stored{"Two", "2", false}),
                         [](const auto& row) { return row.param.name; });

struct Closing {
    const char* name;
    void (*close)(QDialog&);
};

class ClosedBy : public Warnings, public testing::WithParamInterface<Closing> {};

TEST_P(ClosedBy, KeepsTheChoice)
{
    Ask();
    ASSERT_EQ(Open().size(), 1);
    Untick(*Open().front());
    GetParam().close(*Open().front());
    EXPECT_EQ(store.GetTip("Bumpmapping"), "0");
    Ask();
    EXPECT_TRUE(Open().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Ways, ClosedBy,
    testing::Values(
        Closing{"Button",
                [](QDialog& dialog) {
                    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
                }},
        Closing{"Escape", [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }},
        Closing{"Frame", [](QDialog& dialog) { dialog.close(); }}),
    [](const auto& row) { return row.param.name; });

TEST_F(Warnings, ClosingTheWindowKeepsEveryChoice)
{
    Ask("Bumpmapping");
    Ask("MaterialExtended");
    ASSERT_EQ(Open().size(), 2);
    Untick(*Open().front());
    presenter.CloseAll();
    EXPECT_EQ(store.GetTip("Bumpmapping"), "0");
    EXPECT_EQ(store.GetTip("MaterialExtended"), "1");
}

TEST_F(Warnings, OneOnTheScreenIsNotShownTwice)
{
    Ask();
    Ask();
    EXPECT_EQ(Open().size(), 1);
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
