#include "HelpPages.h"
#include "Hints.h"
#include "StudioRig.h"

#include <QListWidget>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QUndoView>

namespace StudioTest {
namespace {

class Help : public ::testing::Test {
protected:
    Help() { rig.Start(); }

    static QString ShownPage()
    {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == QLatin1String("helpWindow") && window->isVisible()) {
                return window->findChild<QTextBrowser*>()->toPlainText().section(u'\n', 0, 0);
            }
        }
        return {};
    }

    StudioRig rig;
};

TEST_F(Help, EveryPageThatIsNamedIsThere)
{
    QStringList topics;
    const QList<studio::HelpPage> pages = studio::HelpPages();
    for (const studio::HelpPage& page : pages) {
        topics << page.topic;
        EXPECT_FALSE(page.title.isEmpty()) << page.topic.toStdString();
    }
    for (const studio::HelpPage& page : pages) {
        static const QRegularExpression link(QStringLiteral("\\]\\(([^)]*)\\.md\\)"));
        for (auto found = link.globalMatch(page.text); found.hasNext();) {
            EXPECT_TRUE(topics.contains(found.next().captured(1))) << page.text.toStdString();
        }
    }
    for (const QWidget* widget : QApplication::allWidgets()) {
        const QString topic = widget->property("helpTopic").toString();
        EXPECT_TRUE(topic.isEmpty() || topics.contains(topic)) << topic.toStdString();
    }
}

TEST_F(Help, TheKeyOpensThePageOfWhatHasTheKeyboardAlsoInADialog)
{
    rig.Window().activateWindow();
    auto& ambient = rig.Shown<QLineEdit>("txtAmbient");
    ambient.setFocus();
    QTest::keyClick(&ambient, Qt::Key_F1);
    EXPECT_EQ(ShownPage(), "Surface");

    QDialog dialog(&rig.Window());
    dialog.setProperty("helpTopic", QStringLiteral("options"));
    dialog.setModal(true);
    QLineEdit field(&dialog);
    dialog.show();
    dialog.activateWindow();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_F1);
    EXPECT_EQ(ShownPage(), "Options");
    auto* help = dialog.findChild<QDialog*>(QStringLiteral("helpWindow"));
    ASSERT_NE(help, nullptr) << "a window of another parent cannot be used behind the dialog";
    auto* search = help->findChild<QLineEdit*>(QStringLiteral("helpSearch"));
    auto* titles = help->findChild<QListWidget*>();
    search->setText(QStringLiteral("transparency>30"));
    EXPECT_EQ(ShownPage(), "Libraries");
    EXPECT_TRUE(titles->item(0)->isHidden());
}

TEST_F(Help, FirstStepsGoOnWithWhatIsDoneAndComeOnce)
{
    rig.Window().OfferFirstSteps();
    auto& hints = rig.Find<studio::Hints>("hints");
    ASSERT_TRUE(hints.isVisible());
    const QString first = hints.findChild<QLabel*>()->text();
    rig.Select({0});
    EXPECT_NE(hints.findChild<QLabel*>()->text(), first);
    rig.Find<QPushButton>("closeHints").click();
    EXPECT_FALSE(hints.isVisible());
    rig.Window().OfferFirstSteps();
    EXPECT_FALSE(hints.isVisible());
}

TEST_F(Help, TheHistoryPanelGoesToTheStepThatIsClicked)
{
    rig.Select({0});
    rig.Type("txtAmbient", QStringLiteral("11"));
    auto& steps = rig.Find<QUndoView>("historySteps");
    ASSERT_EQ(steps.model()->rowCount(), 2);
    steps.setCurrentIndex(steps.model()->index(0, 0));
    EXPECT_NE(rig.Shape(0)->Material().Ambient, 11);
}

}  // namespace
}  // namespace StudioTest
