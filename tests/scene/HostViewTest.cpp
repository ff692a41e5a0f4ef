#include "BoxShape.h"
#include "HostViewport.h"
#include "RenderService.h"
#include "SampleFolder.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/Status.h>

#include <QPointer>
#include <QWheelEvent>

namespace {

using CorvexMaterial::MakeColour;
using studio::ViewportWidget;

class Listener : public CorvexViewport::ViewportListener {
public:
    void PositionChanged(const std::string& text) override { position = text; }
    void ViewChanged() override { ++changes; }

    std::string position;
    int changes = 0;
};

struct ViewportFixture : testing::Test {
    ViewportFixture()
    {
        parent.resize(160, 160);
        view.Widget().resize(160, 160);
        view.SetBackColor(MakeColour({40, 40, 40}));
        parent.show();
    }

    ViewportWidget& Widget() { return static_cast<ViewportWidget&>(view.Widget()); }

    QImage Drawn()
    {
        QSignalSpy shown(&Widget(), &ViewportWidget::pictureShown);
        view.Draw();
        EXPECT_TRUE(shown.wait(20000));
        return Widget().grab().toImage();
    }

    studio::RenderService service;
    QWidget parent;
    studio::HostViewportFactory factory{service};
    CorvexViewport::Viewport& view = *factory.CreateViewport(&parent);
};

bool Red(QRgb pixel)
{
    return qRed(pixel) > 150 && qGreen(pixel) < 60 && qBlue(pixel) < 60;
}

TEST_F(ViewportFixture, ShapeFillsThePictureWhateverItsSize)
{
    for (const float size : {0.01F, 1.0F, 500.0F}) {
        QMatrix4x4 placement;
        placement.scale(size);
        view.Scene().ShowShape(BoxShape(placement));
        const QImage picture = Drawn();
        const QRgb ground = picture.pixel(2, 80);
        EXPECT_GT(std::abs(qGray(picture.pixel(80, 80)) - qGray(ground)), 30) << size;
        int covered = 0;
        for (int x = 0; x < 160; ++x) {
            covered += std::abs(qGray(picture.pixel(x, 80)) - qGray(ground)) > 15 ? 1 : 0;
        }
        EXPECT_GT(covered, 80) << size;
        EXPECT_LT(covered, 158) << size;
    }
}

TEST_F(ViewportFixture, AnotherShapeKeepsTheUsersViewAndNudgesChangeNothing)
{
    const auto shape = BoxShape({});
    view.Scene().ShowShape(shape);
    view.Prepare();
    studio::Camera turned = Widget().Camera();
    turned.yawDegrees += 50.0F;
    turned.distance *= 0.5F;
    Widget().SetCamera(turned);
    shape->Move(0.0001F, 2);
    view.Prepare();
    EXPECT_EQ(Widget().Camera(), turned);
    QMatrix4x4 twice;
    twice.scale(2.0F);
    view.Scene().ShowShape(BoxShape(twice));
    view.Prepare();
    EXPECT_FLOAT_EQ(Widget().Camera().yawDegrees, turned.yawDegrees);
    EXPECT_NEAR(Widget().Camera().distance, 2.0F * turned.distance, 0.01F * turned.distance);
}

TEST_F(ViewportFixture, BitmapIsShownUntilTheNextDrawing)
{
    const CorvexTest::SampleFolder folder;
    const QString path = folder.Save("traced.bmp", Qt::red, {160, 160});
    view.Scene().ShowShape(BoxShape({}));
    EXPECT_FALSE(Red(Drawn().pixel(80, 80)));
    view.PrepareRaytracedPicture();
    view.ShowBitmap(path.toStdString());
    EXPECT_TRUE(Red(Widget().grab().toImage().pixel(80, 80)));
    EXPECT_THROW(view.ShowBitmap("/no/such.bmp"), CorvexMaterial::Error);
    EXPECT_TRUE(Red(Widget().grab().toImage().pixel(80, 80)));
    EXPECT_FALSE(Red(Drawn().pixel(80, 80)));
}

TEST_F(ViewportFixture, ListenerHearsOfTurnsAndOfNothingOnceItIsGone)
{
    Listener listener;
    view.SetListener(&listener);
    QSignalSpy finished(&Widget(), &ViewportWidget::interactionFinished);
    const auto turnWheel = [&] {
        QWheelEvent wheel(QPointF(80, 80), QPointF(80, 80), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&Widget(), &wheel);
        return finished.wait(10000);
    };
    ASSERT_TRUE(turnWheel());
    EXPECT_EQ(listener.changes, 1);
    EXPECT_FALSE(listener.position.empty());
    view.SetListener(nullptr);
    ASSERT_TRUE(turnWheel());
    EXPECT_EQ(listener.changes, 1);
}

TEST_F(ViewportFixture, DeviceResetAndDeletionAmidDrawingAreSurvived)
{
    view.Scene().ShowShape(BoxShape({}));
    const QImage before = Drawn();
    view.ResetDevice();
    EXPECT_EQ(Drawn().pixel(80, 80), before.pixel(80, 80));
    const QPointer<QObject> alive = dynamic_cast<QObject*>(&view);
    ASSERT_TRUE(alive);
    view.Draw();
    QCoreApplication::processEvents();
    delete &view.Widget();
    EXPECT_FALSE(alive);
    QCoreApplication::processEvents();
}

}  // namespace
