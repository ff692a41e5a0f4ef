#include "Outliner.h"

#include "LibraryDrag.h"
#include "OutlinerView.h"
#include "ShapeHiding.h"
#include "StudioRig.h"

#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMimeData>
#include <QTabBar>

namespace {

using studio::OutlinerModel;
using studio::ShapeList;
using testing::ElementsAre;

studio::AppliedMaterial Named(const std::string& name)
{
    studio::AppliedMaterial applied = studio::WholeMaterial({});
    applied.identity = std::make_shared<studio::SceneMaterial>(studio::SceneMaterial{name, {}});
    return applied;
}

QStringList TextsOf(const OutlinerModel& model, const QModelIndex& parent = {})
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        texts << model.index(row, 0, parent).data().toString();
    }
    return texts;
}

TEST(OutlinerModel, ListsByShapeAndByMaterialWhatTheSearchLeaves)
{
    const auto oak = Named("Oak");
    ShapeList scene;
    for (const char* name : {"Leg 10", "Leg 2", "Seat"}) {
        scene.push_back(std::make_shared<studio::StudioShape>(name, nullptr, oak));
    }
    scene.push_back(std::make_shared<studio::StudioShape>("Cushion", nullptr, Named("Felt")));
    OutlinerModel model;
    model.Show(scene);
    EXPECT_THAT(TextsOf(model), ElementsAre("Leg 10", "Leg 2", "Seat", "Cushion"));
    model.sort(OutlinerModel::kName, Qt::AscendingOrder);
    EXPECT_THAT(TextsOf(model), ElementsAre("Cushion", "Leg 2", "Leg 10", "Seat"));
    model.sort(-1, Qt::AscendingOrder);
    model.SetSearch("OAK leg");
    EXPECT_THAT(TextsOf(model), ElementsAre("Leg 10", "Leg 2"));

    model.SetMode(OutlinerModel::Mode::Materials);
    ASSERT_THAT(TextsOf(model), ElementsAre("Oak"));
    const QModelIndex material = model.index(0, 0);
    EXPECT_THAT(TextsOf(model, material), ElementsAre("Leg 10", "Leg 2"));
    EXPECT_EQ(model.ShapesOf(material).size(), 3) << "whoever renames it renames it for all";
    EXPECT_EQ(model.IndexOf(*scene[1]), model.index(1, 0, material));
    EXPECT_FALSE(model.IndexOf(*scene[3]).isValid());
    model.SetSearch({});
    EXPECT_THAT(TextsOf(model), ElementsAre("Felt", "Oak"));
}

class Outlining : public StudioTest::StartedStudio {
protected:
    void SetUp() override { rig.Window().show(); }

    studio::Outliner& List() { return rig.Find<studio::Outliner>("outliner"); }
    studio::OutlinerView& View() { return List().View(); }
    OutlinerModel& Model() { return List().Model(); }
    const ShapeList& Selected() { return rig.Window().Selected().All(); }
    void ListMaterials() { List().SetMode(OutlinerModel::Mode::Materials); }
    [[nodiscard]] QModelIndex RowOf(std::size_t shape)
    {
        return Model().IndexOf(*rig.Shape(shape));
    }
    void ClickOn(const QModelIndex& index, Qt::KeyboardModifiers modifiers = {})
    {
        View().scrollTo(index);
        QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers,
                          View().visualRect(index).center());
    }
    void Share(std::size_t wearer, std::vector<std::size_t> shapes)
    {
        for (const std::size_t shape : shapes) {
            rig.Shape(shape)->SetApplied(rig.Shape(wearer)->Applied());
        }
        Model().Show(rig.Window().Scene().All());
    }
};

TEST_F(Outlining, RowsAndShapesAreSelectedTogetherTheOnePointedAtLast)
{
    rig.Select({2, 0});
    EXPECT_EQ(View().currentIndex(), RowOf(0));
    EXPECT_THAT(View().SelectedShapes(), ElementsAre(rig.Shape(0), rig.Shape(2)));
    ClickOn(RowOf(1), Qt::ControlModifier);
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(2), rig.Shape(0), rig.Shape(1)));
    ClickOn(RowOf(3));
    ClickOn(RowOf(1), Qt::ShiftModifier);
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(3), rig.Shape(2), rig.Shape(1)));

    Share(1, {2});
    ListMaterials();
    ClickOn(RowOf(3).parent());
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(3)));
    const QModelIndex material = RowOf(1).parent();
    ClickOn(material, Qt::ControlModifier);
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(3), rig.Shape(1), rig.Shape(2)));
    ClickOn(material, Qt::ControlModifier);
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(3)));
    ClickOn(material);
    View().expand(material);
    ClickOn(RowOf(2));
    EXPECT_THAT(Selected(), ElementsAre(rig.Shape(2)));
}

TEST_F(Outlining, EyesLocksNamesAndDropsAreUndoSteps)
{
    Share(0, {1});
    rig.Select({1, 2});
    ClickOn(RowOf(2).siblingAtColumn(OutlinerModel::kEye));
    EXPECT_TRUE(rig.Shape(1)->Flags().hidden && rig.Shape(2)->Flags().hidden);
    History().undo();
    View().setFocus();
    QTest::keyClick(&View(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_TRUE(rig.Shape(1)->Flags().locked && rig.Shape(2)->Flags().locked);
    EXPECT_TRUE(Selected().size() == 2);
    History().undo();

    ListMaterials();
    ASSERT_TRUE(Model().setData(RowOf(0).parent(), "Teak", Qt::EditRole));
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.Shape(1)->Applied().identity->name, "Teak");
    EXPECT_EQ(rig.Shape(1)->Applied().identity, rig.Shape(0)->Applied().identity);

    // A material from a library, on all that wear another.
    const auto teak = rig.Shape(0)->Applied();
    studio::NamedMaterial moonstone{"Moonstone", {}};
    moonstone.material.Specular = 91;
    const auto data = studio::DraggedMaterialData(moonstone);
    const QPoint place = View().visualRect(RowOf(0).parent()).center();
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(View().viewport(), &enter);
    QCoreApplication::sendEvent(View().viewport(), &drop);
    QCoreApplication::processEvents();
    EXPECT_EQ(rig.Shape(1)->Material().Specular, 91);
    EXPECT_EQ(rig.Shape(0)->Applied(), rig.Shape(1)->Applied());
    EXPECT_EQ(rig.Shape(0)->Applied().identity->name, "Moonstone");
    Q_EMIT View().ShareWanted(rig.Shape(0), {rig.Shape(3)});
    EXPECT_EQ(rig.Shape(3)->Applied().identity, rig.Shape(0)->Applied().identity);
    History().undo();
    History().undo();
    EXPECT_EQ(rig.Shape(0)->Applied(), teak);
}

TEST_F(Outlining, TenThousandShapesAreListedAtOnce)
{
    ShapeList scene;
    for (int i = 0; i < 10'000; ++i) {
        scene.push_back(std::make_shared<studio::StudioShape>(
            "Part " + std::to_string(i), nullptr, Named("Steel " + std::to_string(i % 1000))));
    }
    ListMaterials();
    QElapsedTimer clock;
    clock.start();
    Model().Show(scene);
    List().grab();
    Model().SetSearch("part 99");
    rig.Window().Selected().Set(scene);
    EXPECT_LT(clock.elapsed(), 2000);
    List().SetMode(OutlinerModel::Mode::Shapes);
    EXPECT_EQ(View().SelectedShapes().size(), 280);
}

}  // namespace
