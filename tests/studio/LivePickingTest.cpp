#include "StudioRig.h"

#include "OpenDocument.h"
#include "StudioShape.h"
#include "ViewportWidget.h"

#include <QMessageBox>
#include <QUndoStack>

namespace {

using namespace CorvexTest;

constexpr CorvexMaterial::Colour kTried = CorvexMaterial::MakeColour({0x12, 0x34, 0x56});

/// Colour, crop and flat wrap on the shapes of the scene while their dialogs are open.
class LivePicking : public StudioTest::StartedStudio {
protected:
    LivePicking()
    {
        rig.Select({0, 1});
        QCoreApplication::processEvents();  // the panel has its places then
        for (const auto& shape : rig.Window().Scene().All()) {
            before.push_back(shape->State());
        }
        QObject::connect(&rig.Window().Panel(), &CorvexMaterial::Material::MaterialChanged,
                         [this] { ++changes; });
    }
    void Try(const char* hex = "123456")
    {
        rig.Press("cmdSelectColor");
        Type(*OpenDialog()->findChild<QLineEdit*>("hex"), hex);
    }
    [[nodiscard]] CorvexMaterial::Colour DrawnColour(std::size_t shape)
    {
        return rig.Shape(shape)->Item().material->Color;
    }
    void ExpectNoTrace()
    {
        for (std::size_t i = 0; i < before.size(); ++i) {
            EXPECT_EQ(rig.Shape(i)->State(), before[i]);
        }
        EXPECT_EQ(History().count(), 0);
        EXPECT_FALSE(rig.Window().isWindowModified());
        EXPECT_EQ(changes, 0);
    }

    std::vector<studio::ShapeState> before;
    int changes = 0;
};

TEST_F(LivePicking, ATriedColourIsDrawnOnTheSelectionAloneAndCancelLeavesNoTrace)
{
    Try();
    EXPECT_EQ(DrawnColour(0), kTried);
    EXPECT_EQ(DrawnColour(1), kTried);
    EXPECT_EQ(DrawnColour(2), rig.Shape(2)->Material().Color);
    ExpectNoTrace();
    OpenDialog()->reject();
    EXPECT_EQ(DrawnColour(0), before[0].applied.gathered->material.Color);
    ExpectNoTrace();

    rig.Press("cmdTexture");
    Type(*OpenDialog()->findChild<QLineEdit*>("txtScaleWidth"), "0.25");
    EXPECT_EQ(rig.Shape(0)->Item().material->Placement.scaleU, 0.25F);
    ExpectNoTrace();
    OpenDialog()->reject();
    ExpectNoTrace();
}

TEST_F(LivePicking, OkIsOneStepThatUndoTakesBackWhole)
{
    Try();
    OpenDialog()->accept();
    EXPECT_EQ(History().count(), 1);
    EXPECT_EQ(History().undoText(), "Change color of 2 shapes");
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(rig.Shape(1)->Material().Color, kTried);
    History().undo();
    EXPECT_EQ(rig.Shape(1)->State(), before[1]);
    // A step that is taken back without the user's hands: what is tried goes.
    History().redo();
    Try();
    History().undo();
    EXPECT_EQ(OpenDialog(), nullptr);
    EXPECT_EQ(DrawnColour(0), before[0].applied.gathered->material.Color);
    EXPECT_EQ(History().count(), 1);
}

TEST_F(LivePicking, ViewsTurnMeanwhileAndWhateverElseIsDoneComesAfterTheColour)
{
    auto& view = *rig.Window().centralWidget();
    Try();
    QTest::mousePress(&view, Qt::RightButton, {}, {40, 40});
    QTest::mouseMove(&view, {90, 60});
    QTest::mouseRelease(&view, Qt::RightButton, {}, {90, 60});
    EXPECT_NE(OpenDialog(), nullptr);
    ExpectNoTrace();

    // The colour goes to the shapes that it was tried on.
    rig.Select({3});
    EXPECT_EQ(OpenDialog(), nullptr);
    EXPECT_EQ(rig.Shape(0)->Material().Color, kTried);
    EXPECT_EQ(rig.Shape(3)->State(), before[3]);
    EXPECT_EQ(History().count(), 1);

    rig.Select({3});
    Try();
    auto& ambient = rig.Find<QLineEdit>("txtAmbient");
    QTest::mouseClick(&ambient, Qt::LeftButton);
    EXPECT_EQ(History().count(), 2);
    Type(ambient, "17");
    EXPECT_EQ(History().count(), 3);
    EXPECT_EQ(rig.Shape(3)->Material().Color, kTried);

    // So does the end: the colour is an edit, and the user is asked whether to keep it.
    History().setClean();
    Try("654321");
    const DialogAnswer question([](QDialog& box) {
        qobject_cast<QMessageBox*>(&box)->button(QMessageBox::Discard)->click();
    });
    rig.Window().close();
    EXPECT_TRUE(question.Given());
    EXPECT_EQ(History().count(), 4);
}

}  // namespace
