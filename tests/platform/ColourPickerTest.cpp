#include "BesideWork.h"
#include "ColourHistory.h"
#include "QtSettingsStore.h"
#include "SampleFolder.h"
#include "Swatch.h"
#include <CorvexMaterial/QtPlatform.h>

#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QSpinBox>
#include <QToolButton>

using namespace CorvexMaterial;

namespace {

class ColourPicking : public testing::Test {
protected:
    ColourPicking()
    {
        window.setGeometry(300, 100, 400, 300);
        button.setGeometry(300, 20, 60, 24);
        view.setGeometry(0, 100, 100, 100);
        view.setProperty(kUsableMeanwhileProperty, true);
        view.setStyleSheet("background: #204060");
        window.show();
    }
    void Open(std::optional<Colour> initial)
    {
        tried.clear();
        closed.clear();
        open = platform.Get().choosers.OpenColour(
            {initial, &button, [this](Colour colour) { tried.push_back(colour); },
             [this](std::optional<Colour> colour) { closed.push_back(colour); }});
    }
    QDialog& Picker()
    {
        QDialog* picker = nullptr;
        for (auto* dialog : window.findChildren<QDialog*>()) {
            picker = dialog->isVisible() ? dialog : picker;
        }
        return picker != nullptr ? *picker : throw std::logic_error("no picker is open");
    }
    template <typename Widget>
    Widget& Part(const char* name)
    {
        return *Picker().findChild<Widget*>(name);
    }

    CorvexTest::SampleFolder home;
    bool isHome = qputenv("XDG_CONFIG_HOME", home.Path().toLocal8Bit());
    QWidget window;
    QPushButton button{&window};
    QPushButton other{&window};
    QLabel view{&window};
    QtPlatform platform{&window};
    std::unique_ptr<OpenColourDialog> open;
    std::vector<Colour> tried;
    std::vector<std::optional<Colour>> closed;
    using Answers = std::vector<std::optional<Colour>>;
};

TEST_F(ColourPicking, StandsBesideItsButtonOnTheScreen)
{
    for (const QPoint at : {QPoint(10, 10), QPoint(700, 500), QPoint(300, 100)}) {
        window.move(at);
        Open(kWhite);
        const QRect anchor(button.mapToGlobal(QPoint()), button.size());
        const QRect picker = Picker().geometry();
        EXPECT_FALSE(picker.intersects(anchor));
        EXPECT_TRUE(window.screen()->availableGeometry().contains(picker))
            << testing::PrintToString(
                   std::array{picker.left(), picker.top(), picker.right(), picker.bottom()});
        EXPECT_FALSE(Picker().isModal());
        open.reset();
        EXPECT_TRUE(closed.empty());
    }
}

TEST_F(ColourPicking, AllWaysToAColourAgreeAndEachIsTold)
{
    Open(MakeColour({1, 2, 3}));
    auto& hex = Part<QLineEdit>("hex");
    EXPECT_EQ(hex.text(), "#010203");
    hex.selectAll();
    QTest::keyClicks(&hex, "f80");
    EXPECT_EQ(tried.back(), MakeColour({255, 136, 0}));
    EXPECT_EQ(Part<QSpinBox>("green").value(), 136);
    EXPECT_EQ(Part<QSpinBox>("hue").value(), 32);
    // Without light or saturation the hue is not lost.
    Part<QSpinBox>("brightness").setValue(0);
    EXPECT_EQ(tried.back(), 0);
    Part<QSpinBox>("brightness").setValue(100);
    EXPECT_EQ(tried.back(), MakeColour({255, 136, 0}));
    Part<QSpinBox>("blue").setValue(255);
    EXPECT_EQ(hex.text(), "#ff88ff");
    QTest::keyClick(&Part<QWidget>("field"), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Part<QSpinBox>("brightness").value(), 90);
    QTest::keyClick(&Part<QWidget>("field"), Qt::Key_Return);
    const Colour chosen = tried.back();
    EXPECT_EQ(closed, Answers{chosen});

    Open(kWhite);
    QTest::mouseClick(&Part<QWidget>("recent_0"), Qt::LeftButton);
    EXPECT_EQ(tried.back(), chosen);
    QTest::mouseClick(&Part<QWidget>("before"), Qt::LeftButton);
    EXPECT_EQ(tried.back(), kWhite);
    QTest::keyClick(&Picker(), Qt::Key_Escape);
    EXPECT_EQ(closed, Answers{std::nullopt});
}

TEST_F(ColourPicking, TheEyedropperTakesWhatAWindowShows)
{
    Open(kWhite);
    auto& eyedropper = Part<QToolButton>("eyedropper");
    const auto clickAt = [this](QPoint inView, Qt::MouseButton which) {
        const QPoint place = Picker().mapFromGlobal(view.mapToGlobal(inView));
        QTest::mouseMove(&Picker(), place);
        QTest::mouseClick(&Picker(), which, {}, place);
    };
    Picker().move(0, 100);
    eyedropper.click();
    clickAt({50, 50}, Qt::RightButton);
    EXPECT_TRUE(tried.empty());
    eyedropper.click();
    QTest::keyClick(&Picker(), Qt::Key_Escape);
    EXPECT_TRUE(Picker().isVisible()) << "left the dialog instead of the eyedropper";
    eyedropper.click();
    clickAt({50, 50}, Qt::LeftButton);
    EXPECT_EQ(tried, std::vector{MakeColour({0x20, 0x40, 0x60})});
}

TEST_F(ColourPicking, WorkBesideItEndsItAndLookingDoesNot)
{
    int pressed = 0;
    QObject::connect(&other, &QPushButton::clicked, [&] {
        ++pressed;
        EXPECT_EQ(closed.size(), 1U) << "what was begun came before the colour";
    });
    Open(kWhite);
    QTest::mouseClick(&view, Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_Tab);
    EXPECT_TRUE(closed.empty());
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(closed, Answers{std::nullopt}) << "nothing was tried";
    Open(kWhite);
    Part<QSpinBox>("red").setValue(7);
    QTest::mouseClick(&other, Qt::LeftButton);
    EXPECT_EQ(closed, Answers{MakeColour({7, 255, 255})});
    EXPECT_EQ(pressed, 2);
    // The button that opened it closes it, and does not open it again.
    Open(kWhite);
    QObject::connect(&button, &QPushButton::clicked, [&] { ++pressed; });
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(closed.size(), 1U);
    EXPECT_EQ(pressed, 2);
}

TEST(ColourHistoryTest, KeepsTheLatestOnceAndOutlivesTheProgram)
{
    const CorvexTest::SampleFolder home;
    {
        QtSettingsStore settings(home.Path());
        ColourHistory history(settings);
        for (int red = 0; red < 20; ++red) {
            history.Add(red);
        }
        history.Add(12);
    }
    QtSettingsStore settings(home.Path());
    const auto colours = ColourHistory(settings).Colours();
    ASSERT_EQ(colours.size(), ColourHistory::kMost);
    EXPECT_EQ((std::vector{colours[0], colours[1], colours[2], colours.back()}),
              (std::vector{12, 19, 18, 4}));
}

}  // namespace
