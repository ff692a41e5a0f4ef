#include "Picking.h"
#include "StudioRig.h"
#include "ViewportWidget.h"

#include <QClipboard>
#include <QGuiApplication>

namespace {

using studio::SceneMaterial;

class Brush : public StudioTest::StartedStudio {
protected:
    /// Where the view shows the shape.
    QPoint PlaceOf(std::size_t index)
    {
        constexpr int kStep = 6;
        studio::ViewportWidget& view = rig.Window().Viewport();
        for (int y = 0; y < view.height(); y += kStep) {
            for (int x = 0; x < view.width(); x += kStep) {
                const auto ray = view.Camera().RayThrough(QPointF(x, y), view.size());
                const auto hit = studio::PickNearest(ray, rig.Window().Scene().All());
                if (hit && hit->shape == rig.Shape(index)) {
                    return {x, y};
                }
            }
        }
        throw std::logic_error("the shape cannot be seen");
    }
    void Press(std::size_t shape)
    {
        QTest::mousePress(&View(), Qt::LeftButton, {}, PlaceOf(shape));
    }
    void DragTo(std::size_t shape)
    {
        const QPoint place = PlaceOf(shape);
        QMouseEvent move(QEvent::MouseMove, place, View().mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&View(), &move);
    }
    void Release(std::size_t shape)
    {
        QTest::mouseRelease(&View(), Qt::LeftButton, {}, PlaceOf(shape));
        QCoreApplication::processEvents();
    }
    QWidget& View() { return rig.Window().Viewport(); }
    CorvexDB::udtMaterial MaterialOf(std::size_t index) { return rig.Shape(index)->Material(); }
    void Name(std::size_t index, const char* name)
    {
        auto applied = rig.Shape(index)->Applied();
        applied.identity = std::make_shared<SceneMaterial>(SceneMaterial{name, {}});
        rig.Shape(index)->SetApplied(applied);
    }
};

TEST_F(Brush, AStrokeIsOneStepSeenAsItIsDrawnAndEscEndsIt)
{
    const std::array before{MaterialOf(1), MaterialOf(2)};
    const auto name = rig.Shape(1)->Applied().identity;
    Name(0, "Oak");
    rig.Select({0});
    rig.Trigger("Brush Material");
    EXPECT_TRUE(rig.Action("Brush Material").isChecked());
    Press(1);
    DragTo(2);
    DragTo(1);
    EXPECT_EQ(rig.Shape(1)->Item().material->Color, MaterialOf(0).Color) << "seen at once";
    EXPECT_EQ(History().count(), 0);
    Release(2);
    EXPECT_EQ(History().count(), 1);
    EXPECT_TRUE(MaterialOf(1) == MaterialOf(0) && MaterialOf(2) == MaterialOf(0));
    EXPECT_EQ(rig.Shape(1)->Applied().identity, rig.Shape(0)->Applied().identity);
    EXPECT_EQ(rig.Window().Selected().All().size(), 1U);
    History().undo();
    EXPECT_TRUE(MaterialOf(1) == before[0] && MaterialOf(2) == before[1]);
    EXPECT_EQ(rig.Shape(1)->Applied().identity, name);

    Press(1);
    QTest::keyClick(&View(), Qt::Key_Escape);
    QTest::mouseRelease(&View(), Qt::LeftButton, {}, PlaceOf(1));
    EXPECT_TRUE(MaterialOf(1) == before[0]);
    EXPECT_EQ(History().index(), 0);
    EXPECT_FALSE(rig.Action("Brush Material").isChecked());
    Press(3);
    Release(3);
    EXPECT_EQ(rig.Window().Selected().Latest(), rig.Shape(3)) << "a click selects again";
}

TEST_F(Brush, PickingGivesTheSelectedShapesTheMaterialOfTheClickedOne)
{
    rig.Select({1, 2});
    rig.Trigger("Pick Material from Shape");
    Press(3);
    Release(3);
    EXPECT_TRUE(MaterialOf(1) == MaterialOf(3) && MaterialOf(2) == MaterialOf(3));
    EXPECT_EQ(History().count(), 1);
    EXPECT_FALSE(rig.Action("Pick Material from Shape").isChecked());
    EXPECT_EQ(rig.TextOf("txtAmbient"), QString::number(MaterialOf(3).Ambient));

    rig.Select({});
    rig.Trigger("Pick Material from Shape");
    Press(0);
    Release(0);
    EXPECT_EQ(rig.Read(&CorvexMaterial::IMaterial::get_lVBColor), MaterialOf(0).Color);
    EXPECT_EQ(History().count(), 1);
}

TEST_F(Brush, PastingGivesSeveralShapesAWholeMaterialOrAGroupOfIt)
{
    using enum CorvexMaterial::Attribute;
    Name(0, "Oak");
    rig.Select({0});
    QCoreApplication::processEvents();
    rig.Trigger("Copy Material");
    rig.Select({1, 3});
    rig.Trigger("Paste Material");
    EXPECT_TRUE(MaterialOf(1) == MaterialOf(0) && MaterialOf(3) == MaterialOf(0));
    EXPECT_EQ(rig.Shape(3)->Applied().identity, rig.Shape(0)->Applied().identity);
    ASSERT_EQ(History().count(), 1);
    History().undo();

    auto expected = MaterialOf(3);
    rig.Select({0});
    ASSERT_EQ(rig.Window().Panel().CopyMaterial({Color, Ambient}), CorvexMaterial::Status::Success);
    rig.Select({1, 3});
    rig.Trigger("Paste Material");
    expected.Color = MaterialOf(0).Color;
    expected.Ambient = MaterialOf(0).Ambient;
    EXPECT_TRUE(MaterialOf(3) == expected);
    EXPECT_EQ(History().undoText(), "Change surface of 2 shapes");
    QGuiApplication::clipboard()->setText("no material");
    rig.Trigger("Paste Material");
    EXPECT_EQ(History().count(), 1);
}

}  // namespace
