#include "ViewportWidget.h"
#include "Drawing.h"
#include "FrameSource.h"
#include "GlContext.h"
#include "Images.h"
#include "TextureCache.h"
#include "ViewTool.h"
#include <CorvexMaterial/Status.h>

#include <QWheelEvent>

using namespace drawing;
using studio::ViewportWidget;

namespace {

class BallSource : public studio::FrameSource {
public:
    void Fill(studio::Frame& frame) override { frame.items = {Item(Ball(), material)}; }

    Material material = Glowing(0x0000FF);
};

class NoDevice : public studio::GlContextProvider {
public:
    std::unique_ptr<studio::GlContext> Create() override
    {
        throw CorvexMaterial::Error(CorvexMaterial::Status::GraphicsFailed, "no device today");
    }
};

class ViewportWidgetTest : public testing::Test {
protected:
    ViewportWidgetTest()
    {
        widget.resize(200, 150);
        widget.SetSource(&source);
    }

    void ShowAndWait()
    {
        QSignalSpy shown(&widget, &ViewportWidget::pictureShown);
        widget.show();
        ASSERT_TRUE(shown.wait());
    }

    /// Until whatever was asked for is drawn.
    void Settle()
    {
        QCoreApplication::processEvents();
        (void)service.DrawNow(widget.CurrentFrame());
        QCoreApplication::processEvents();
    }

    QRgb MiddlePixel() { return widget.grab().toImage().pixel(100, 75); }

    void Drag(Qt::MouseButton button, Qt::KeyboardModifiers modifiers, QPoint by)
    {
        const QPoint from(100, 75);
        QTest::mousePress(&widget, button, modifiers, from);
        // QTest's move carries no buttons or modifiers, so each step is an event of its own.
        for (int step = 1; step <= 4; ++step) {
            const QPointF to = from + by * step / 4;
            QMouseEvent move(QEvent::MouseMove, to, widget.mapToGlobal(to), Qt::NoButton, button,
                             modifiers);
            QApplication::sendEvent(&widget, &move);
        }
        QTest::mouseRelease(&widget, button, modifiers, from + by);
    }

    void Wheel(int steps)
    {
        const QPointF at(100, 75);
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * steps}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }

    BallSource source;
    studio::RenderService service;
    ViewportWidget widget{service};
};

TEST_F(ViewportWidgetTest, TextureAppearsAndFollowsItsFile)
{
    source.material = Glowing(CorvexMaterial::kWhite);
    source.material.Textures.primary = WriteImage("view.png", Plain(Qt::red));
    ShowAndWait();
    ASSERT_TRUE(QTest::qWaitFor([&] { return MiddlePixel() == qRgb(255, 0, 0); }));
    WriteImage("view.png", ImageOf(32, [](double, double) { return QColor(Qt::green); }));
    service.Textures().CheckFiles();
    ASSERT_TRUE(QTest::qWaitFor([&] { return MiddlePixel() == qRgb(0, 255, 0); }));
    // Not in place of an image that is shown instead of the scene.
    widget.ShowPicture(Plain(Qt::blue));
    WriteImage("view.png", Plain(Qt::white));
    QSignalSpy ready(&service.Textures(), &studio::TextureCache::textureReady);
    service.Textures().CheckFiles();
    ASSERT_TRUE(ready.wait());
    QTest::qWait(50);
    EXPECT_EQ(MiddlePixel(), qRgb(0, 0, 255));
}

TEST_F(ViewportWidgetTest, HiddenViewDrawsOnceItIsShown)
{
    widget.Draw();
    QSignalSpy shown(&widget, &ViewportWidget::pictureShown);
    Settle();
    EXPECT_EQ(shown.count(), 0);
    ShowAndWait();
    EXPECT_EQ(MiddlePixel(), qRgb(255, 0, 0));
}

TEST_F(ViewportWidgetTest, SeveralDrawsBeforeTheEventLoopCostOnePicture)
{
    ShowAndWait();
    QSignalSpy shown(&widget, &ViewportWidget::pictureShown);
    for (int i = 0; i < 20; ++i) {
        widget.Draw();
    }
    ASSERT_TRUE(shown.wait());
    EXPECT_EQ(shown.count(), 1);
    ASSERT_TRUE(shown.wait());  // a resting view gets its smooth edges
    EXPECT_EQ(MiddlePixel(), qRgb(255, 0, 0));
}

TEST_F(ViewportWidgetTest, PictureStaysUntilTheNextDraw)
{
    ShowAndWait();
    widget.Draw();
    QCoreApplication::processEvents();
    widget.ShowPicture(Plain(Qt::green));
    Settle();
    EXPECT_EQ(MiddlePixel(), qRgb(0, 255, 0));
    widget.resize(210, 150);
    widget.hide();
    widget.show();
    Settle();
    EXPECT_EQ(MiddlePixel(), qRgb(0, 255, 0));
    QSignalSpy shown(&widget, &ViewportWidget::pictureShown);
    widget.Draw();
    ASSERT_TRUE(shown.wait());
    EXPECT_EQ(MiddlePixel(), qRgb(255, 0, 0));
}

TEST_F(ViewportWidgetTest, DragsTurnAndPanAndAClickDoesNeither)
{
    ShowAndWait();
    const studio::Camera home = widget.Camera();
    QSignalSpy clicked(&widget, &ViewportWidget::clicked);
    QSignalSpy finished(&widget, &ViewportWidget::interactionFinished);
    QSignalSpy position(&widget, &ViewportWidget::positionText);
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ControlModifier, {20, 30});
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked[0][0].toPoint(), QPoint(20, 30));
    EXPECT_EQ(clicked[0][1].value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    EXPECT_EQ(widget.Camera(), home);

    Drag(Qt::LeftButton, Qt::NoModifier, {40, 20});
    EXPECT_LT(widget.Camera().yawDegrees, home.yawDegrees);  // the near side follows the hand
    EXPECT_GT(widget.Camera().pitchDegrees, home.pitchDegrees);
    EXPECT_EQ(widget.Camera().target, home.target);
    EXPECT_FALSE(position.isEmpty());
    Drag(Qt::LeftButton, Qt::NoModifier, {0, 4000});
    EXPECT_LT(widget.Camera().pitchDegrees, 90.0F);

    for (const auto& [button, modifiers] :
         {std::pair{Qt::MiddleButton, Qt::KeyboardModifiers(Qt::NoModifier)},
          {Qt::LeftButton, Qt::KeyboardModifiers(Qt::ShiftModifier)}}) {
        widget.SetHomeCamera(home);
        Drag(button, modifiers, {75, 0});
        EXPECT_EQ(widget.Camera().yawDegrees, home.yawDegrees);
        // Half the picture's height to the right: what was the middle is now there.
        const studio::Ray ray = widget.Camera().RayThrough({175, 75}, widget.size());
        EXPECT_LT(home.target.distanceToLine(ray.origin, ray.direction), 0.01F);
    }
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(finished.count(), 4);
    Drag(Qt::LeftButton, Qt::NoModifier, {2, 1});
    EXPECT_EQ(clicked.count(), 2) << "a hand is never quite still";

    // A second button neither ends what the first one began nor clicks.
    QTest::mousePress(&widget, Qt::LeftButton, {}, {100, 75});
    QTest::mouseClick(&widget, Qt::RightButton, {}, {100, 75});
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {100, 75});
    EXPECT_EQ(clicked.count(), 3);
}

TEST_F(ViewportWidgetTest, WheelZoomsToThePointerWithinLimits)
{
    ShowAndWait();
    const studio::Camera home = widget.Camera();
    QSignalSpy finished(&widget, &ViewportWidget::interactionFinished);
    Wheel(1);
    EXPECT_LT(widget.Camera().distance, home.distance);
    EXPECT_TRUE(finished.wait());
    EXPECT_EQ(finished.count(), 1);
    Wheel(1000);
    EXPECT_GT(widget.Camera().distance, home.distance / 1000.0F);
    Wheel(-2000);
    EXPECT_LT(widget.Camera().distance, home.distance * 100.0F);
    widget.ResetView();
    EXPECT_EQ(widget.Camera(), home);
    EXPECT_EQ(widget.PositionText(), "Yaw 35°  Pitch 20°  Zoom 100 %");
}

/// Takes what is pressed in the left half, and hears of it.
class LeftHalf : public studio::ViewTool {
public:
    bool MousePress(const QMouseEvent& event) override
    {
        heard += 'p';
        return event.position().x() < 100.0;
    }
    bool MouseMove(const QMouseEvent& /*event*/) override
    {
        heard += 'm';
        return true;
    }
    void MouseRelease(const QMouseEvent& /*event*/) override { heard += 'r'; }
    void MouseCancel() override { heard += 'c'; }

    std::string heard;
};

TEST_F(ViewportWidgetTest, ToolTakesADragOrLeavesItToTheView)
{
    LeftHalf older;
    LeftHalf tool;
    widget.AddTool(older);
    widget.AddTool(tool);
    const studio::Camera home = widget.Camera();
    QSignalSpy clicked(&widget, &ViewportWidget::clicked);
    QTest::mousePress(&widget, Qt::LeftButton, {}, {20, 30});
    QTest::mouseMove(&widget, {150, 30});
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {150, 30});
    EXPECT_EQ(tool.heard, "pmr");
    EXPECT_EQ(older.heard, "");
    EXPECT_EQ(widget.Camera(), home);
    QTest::mousePress(&widget, Qt::LeftButton, {}, {20, 30});
    QTest::keyClick(&widget, Qt::Key_Escape);
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {20, 30});
    EXPECT_EQ(tool.heard, "pmrpc");
    EXPECT_EQ(clicked.count(), 0);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, {150, 30});
    EXPECT_EQ(clicked.count(), 1);
    Drag(Qt::LeftButton, Qt::AltModifier, {-80, 0});
    EXPECT_NE(widget.Camera(), home);
    EXPECT_EQ(tool.heard, "pmrpcp");
    widget.RemoveTool(tool);
    widget.RemoveTool(older);
}

TEST(ViewportWithoutDevice, SaysSo)
{
    studio::RenderService service(std::make_unique<NoDevice>());
    ViewportWidget widget(service);
    widget.resize(200, 150);
    widget.SetBackground(0);
    QSignalSpy failed(&widget, &ViewportWidget::failed);
    widget.show();
    ASSERT_TRUE(failed.wait());
    EXPECT_EQ(failed[0][0].toString(), "no device today");
    EXPECT_GT(CountOf(widget.grab().toImage(), 0xFFFFFFFF), 0);  // there is a text
}

}  // namespace
