#include "SampleFolder.h"
#include <CorvexMaterial/QtPlatform.h>

#include <QFileDialog>
#include <QListView>
#include <QMessageBox>

using namespace CorvexMaterial;
using testing::Optional;

namespace {

/// Runs the action on the next modal dialog that opens, as a user would, once it is on screen.
template <typename Dialog, typename Action>
void WhenOpen(Action action)
{
    auto* poll = new QTimer(qApp);
    QObject::connect(poll, &QTimer::timeout, poll, [poll, action] {
        if (auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget())) {
            poll->stop();
            poll->deleteLater();
            action(*dialog);
        }
    });
    poll->start(5);
}

bool Shows(const QFileDialog& dialog, const QString& name)
{
    const auto* list = dialog.findChild<QListView*>("listView");
    return QTest::qWaitFor([&] {
        return !list->model()
                    ->match(list->model()->index(0, 0, list->rootIndex()), Qt::DisplayRole, name)
                    .isEmpty();
    });
}

}  // namespace

TEST(MessageTest, BoxShowsTheTextAsItIs)
{
    QWidget window;
    QtPlatform platform(&window);
    for (const auto& [asked, shown] : {std::pair{PromptIcon::Information, QMessageBox::Information},
                                       {PromptIcon::Exclamation, QMessageBox::Warning},
                                       {PromptIcon::Critical, QMessageBox::Critical}}) {
        int boxes = 0;
        WhenOpen<QMessageBox>([&, icon = shown](QMessageBox& box) {
            ++boxes;
            EXPECT_EQ(box.icon(), icon);
            EXPECT_EQ(box.windowTitle(), "Corvex");
            EXPECT_EQ(box.text(), "<b>a & b</b>");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.parentWidget(), &window);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        platform.Get().prompts.Show({asked, "Corvex", "<b>a & b</b>"});
        EXPECT_EQ(boxes, 1);
    }
}

TEST(MessageTest, WhatADialogBringsUpBelongsToIt)
{
    QWidget window;
    QtPlatform platform(&window);
    QDialog dialog(&window);
    dialog.setModal(true);
    dialog.show();
    int opened = 0;
    const auto look = [&](QDialog& shown) {
        ++opened;
        EXPECT_EQ(shown.parentWidget(), &dialog) << shown.metaObject()->className();
        shown.reject();
    };
    WhenOpen<QMessageBox>(look);
    platform.Get().prompts.Show({PromptIcon::Critical, "Corvex", "Over the dialog"});
    WhenOpen<QDialog>(look);
    platform.Get().choosers.ChooseColour(kWhite);
    WhenOpen<QFileDialog>(look);
    platform.Get().choosers.ChooseFile({"Open", "Any", {}, {}, false});
    EXPECT_EQ(opened, 3);
}

TEST(QuestionTest, OnlyYesIsYes)
{
    QtPlatform platform;
    const auto answer = [&](auto act) {
        WhenOpen<QMessageBox>(act);
        return platform.Get().prompts.AskYesNo({PromptIcon::Information, "Corvex", "Really?"});
    };
    EXPECT_TRUE(answer([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }));
    EXPECT_FALSE(answer([](QMessageBox& box) { box.button(QMessageBox::No)->click(); }));
    EXPECT_FALSE(answer([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }));
    EXPECT_FALSE(answer([](QMessageBox& box) { box.close(); }));
}

TEST(QuestionTest, AWindowThatDiesUnderItsDialogsIsAnsweredWithNo)
{
    auto window = std::make_unique<QWidget>();
    QtPlatform platform(window.get());
    WhenOpen<QMessageBox>([&](QMessageBox&) { window.reset(); });
    EXPECT_FALSE(platform.Get().prompts.AskYesNo({PromptIcon::Critical, "Corvex", "Still there?"}));
    window = std::make_unique<QWidget>();
    platform.SetDialogParent(window.get());
    WhenOpen<QDialog>([&](QDialog&) { window.reset(); });
    EXPECT_EQ(platform.Get().choosers.ChooseColour(kWhite), std::nullopt);
}

// As typed: the dialog's own `selectFile` leaves a name field that has the focus alone.
void AcceptWith(QFileDialog& dialog, const QString& file)
{
    dialog.findChild<QLineEdit*>("fileNameEdit")->setText(file);
    QMetaObject::invokeMethod(&dialog, "accept");
}

TEST(FileChooserTest, ListsMatchingFilesInAnyCaseAndReturnsThePath)
{
    const CorvexTest::SampleFolder folder;
    folder.Write("LOUD.TIF", {});
    folder.Write("quiet.bmp", {});
    QtPlatform platform;
    WhenOpen<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList("Pictures (*.tif *.png)"));
        EXPECT_TRUE(Shows(dialog, "LOUD.TIF"));
        const auto* list = dialog.findChild<QListView*>("listView");
        EXPECT_EQ(list->model()->rowCount(list->rootIndex()), 1);
        AcceptWith(dialog, "LOUD.TIF");
    });
    EXPECT_THAT(platform.Get().choosers.ChooseFile(
                    {"Open", "Pictures", {"tif", "png"}, folder.Path().toStdString(), false}),
                Optional(folder.PathOf("LOUD.TIF").toStdString()));
}

TEST(FileChooserTest, ANewNameGetsTheExtensionWhereNewNamesAreAllowed)
{
    const CorvexTest::SampleFolder folder;
    QtPlatform platform;
    WhenOpen<QFileDialog>([](QFileDialog& dialog) { AcceptWith(dialog, "fresh"); });
    EXPECT_THAT(platform.Get().choosers.ChooseFile(
                    {"Open", "Libraries", {"cvm"}, folder.Path().toStdString(), true}),
                Optional(folder.PathOf("fresh.cvm").toStdString()));
    WhenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(platform.Get().choosers.ChooseFile({"Open", "Any", {}, "/no/such folder", false}),
              std::nullopt);
}
