#include "StudioRig.h"

#include "HostViewport.h"
#include "NamedViews.h"
#include "OpenDocument.h"
#include "ShapeHiding.h"
#include "ShapeMenu.h"
#include "ViewMenu.h"
#include "ViewportWidget.h"

#include <QComboBox>
#include <QMenu>

using namespace StudioTest;
using studio::Camera;
using studio::Lens;
using studio::Selection;

namespace {

class Viewing : public StartedStudio {
protected:
    Viewing()
    {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&rig.Window()));
        View().setFocus();
    }

    studio::ViewportWidget& View() { return rig.Window().Viewport(); }
    const Selection::Shapes& Selected() { return rig.Window().Selected().All(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&View(), key, modifiers);
    }
    QPoint PointOn(const studio::StudioShape& shape)
    {
        const QSizeF size = View().size();
        const QVector3D clip = (View().Camera().Projection(size, {}) * View().Camera().View())
                                   .map(studio::WorldBounds(shape.Item()).Centre());
        return QPointF((clip.x() + 1.0) / 2.0 * size.width(),
                       (1.0 - clip.y()) / 2.0 * size.height())
            .toPoint();
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mousePress(&View(), Qt::LeftButton, modifiers, from);
        for (const QPoint& at : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, at, View().mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, modifiers);
            QApplication::sendEvent(&View(), &move);
        }
        QTest::mouseRelease(&View(), Qt::LeftButton, modifiers, to);
    }
};

TEST_F(Viewing, BoxesSelectAddAndToggleOnTheBackground)
{
    const QPoint end(View().width() - 2, View().height() - 2);
    const Camera before = View().Camera();
    Drag({1, 1}, end);
    const std::size_t all = rig.Window().Scene().All().size();
    EXPECT_EQ(Selected().size(), all);
    EXPECT_EQ(View().Camera(), before);
    Drag({1, 1}, end, Qt::ControlModifier);
    EXPECT_TRUE(Selected().empty());
    rig.Select({0});
    Drag({1, 1}, end, Qt::ShiftModifier);
    EXPECT_EQ(Selected().size(), all);
    Drag({1, 1}, {20, 20});
    EXPECT_TRUE(Selected().empty());
    // On a shape it turns round it.
    const QPoint shape = PointOn(*rig.Shape(0));
    Drag(shape, shape + QPoint(60, 0));
    EXPECT_NE(View().Camera(), before);
    EXPECT_TRUE(Selected().empty());
}

TEST_F(Viewing, KeysSelectShapesAndMoveTheView)
{
    Key(Qt::Key_PageDown);
    EXPECT_EQ(Selected(), Selection::Shapes{rig.Shape(0)});
    Key(Qt::Key_PageDown);
    Key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Selection::Shapes{rig.Shape(1), rig.Shape(2)}));
    Key(Qt::Key_PageUp);
    EXPECT_EQ(Selected(), Selection::Shapes{rig.Shape(1)});
    Key(Qt::Key_Home);
    const Camera home = View().Camera();
    Key(Qt::Key_F);
    EXPECT_LT(View().Camera().distance, home.distance);
    Key(Qt::Key_Left);
    EXPECT_NE(View().Camera().yawDegrees, home.yawDegrees);
    Key(Qt::Key_Right);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(View().Camera().yawDegrees, home.yawDegrees);
    Key(Qt::Key_Minus);
    Key(Qt::Key_Home);
    EXPECT_NEAR(View().Camera().distance, home.distance, 0.01F * home.distance);
    Key(Qt::Key_H);
    EXPECT_TRUE(rig.Shape(1)->Flags().hidden);
    EXPECT_TRUE(Selected().empty());
    Key(Qt::Key_PageUp);
    Key(Qt::Key_H, Qt::ShiftModifier);
    EXPECT_TRUE(rig.Shape(0)->Flags().hidden);
    Key(Qt::Key_H, Qt::ControlModifier);
    EXPECT_FALSE(rig.Shape(0)->Flags().hidden);
    Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected().size(), rig.Window().Scene().All().size());
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Selected().empty());
}

TEST_F(Viewing, StandardViewsCanBeTakenBackAndNamed)
{
    const Camera home = View().Camera();
    rig.Trigger("Top");
    EXPECT_EQ(View().Camera().pitchDegrees, 90.0F);
    EXPECT_EQ(View().Camera().target, home.target);
    rig.Trigger("Parallel Projection");
    EXPECT_EQ(View().Camera().lens, Lens::Parallel);
    const Camera top = View().Camera();
    rig.Window().Views().SaveView("Lid & lock");
    rig.Trigger("Previous View");
    rig.Trigger("Previous View");
    EXPECT_EQ(View().Camera(), home);
    EXPECT_FALSE(rig.Action("Previous View").isEnabled());
    EXPECT_FALSE(rig.Action("Parallel Projection").isChecked());
    rig.Trigger("Next View");
    EXPECT_EQ(View().Camera().pitchDegrees, 90.0F);

    History().undo();
    EXPECT_TRUE(rig.Window().Document().Content().views.empty());
    History().redo();
    const QString file = rig.PathOf("views.corvex");
    rig.Window().Document().SaveAs(file);
    rig.Window().ResetScene();
    EXPECT_TRUE(rig.Window().Document().Content().views.empty());
    EXPECT_TRUE(rig.Window().Document().Open(file).empty());
    const std::vector<studio::NamedView> expected{{"Lid & lock", top}};
    EXPECT_EQ(rig.Window().Document().Content().views, expected);
    auto& menu = rig.Find<QMenu>("namedViews");
    Q_EMIT menu.aboutToShow();
    Key(Qt::Key_Home);
    menu.actions().last()->trigger();
    EXPECT_EQ(View().Camera(), top);
}

TEST_F(Viewing, RightClickOffersWhatCanBeDoneWithTheShapeUnderIt)
{
    std::shared_ptr<studio::StudioShape> told;
    QObject::connect(&rig.Window().Shapes(), &studio::ShapeMenu::MenuRequested, &rig.Window(),
                     [&told](const auto& shape, QMenu& menu) {
                         told = shape;
                         menu.addAction("Another's");
                     });
    QTest::mouseClick(&View(), Qt::RightButton, {}, PointOn(*rig.Shape(1)));
    EXPECT_EQ(told, rig.Shape(1));
    EXPECT_EQ(Selected(), Selection::Shapes{rig.Shape(1)});
    auto& menu = rig.Find<QMenu>("viewMenu");
    QStringList texts;
    for (const QAction* action : menu.actions()) {
        texts << action->text().remove('&');
    }
    EXPECT_TRUE(texts.contains("Hide") && texts.contains("Another's"))
        << texts.join(' ').toStdString();
    menu.close();
    QTest::mouseDClick(&View(), Qt::LeftButton, {}, PointOn(*rig.Shape(1)));
    EXPECT_LT(
        (View().Camera().target - studio::WorldBounds(rig.Shape(1)->Item()).Centre()).length(),
        1.0e-3F);
}

TEST_F(Viewing, ChosenNavigationHoldsInTheSceneAndThePreview)
{
    rig.Trigger("Options...");
    auto& dialog = rig.Find<QDialog>("OptionsDialog");
    CorvexTest::FindIn<QComboBox>(dialog, "navigation").setCurrentText("Maya");
    dialog.accept();
    const Camera before = View().Camera();
    const QPoint shape = PointOn(*rig.Shape(0));
    Drag(shape, shape + QPoint(60, 0));
    EXPECT_EQ(View().Camera(), before) << "draws a box";
    Drag(shape, shape + QPoint(60, 0), Qt::AltModifier);
    EXPECT_NE(View().Camera(), before);
    auto& preview = *rig.Window().Panel().findChild<studio::ViewportWidget*>();
    const Camera still = preview.Camera();
    for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::AltModifier}) {
        QMouseEvent press(QEvent::MouseButtonPress, {5, 5}, {}, Qt::MiddleButton, Qt::MiddleButton,
                          modifiers);
        QMouseEvent move(QEvent::MouseMove, {60, 5}, {}, Qt::NoButton, Qt::MiddleButton, modifiers);
        QMouseEvent release(QEvent::MouseButtonRelease, {60, 5}, {}, Qt::MiddleButton, {},
                            modifiers);
        for (QMouseEvent* event : {&press, &move, &release}) {
            QApplication::sendEvent(&preview, event);
        }
        EXPECT_EQ(preview.Camera() == still, modifiers == Qt::NoModifier);
    }
}

}  // namespace
