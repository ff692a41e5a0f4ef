#include "Selection.h"
#include "BoxShape.h"

namespace {

using studio::Selection;

struct SelectionFixture : testing::Test {
    SelectionFixture()
    {
        QObject::connect(&selection, &Selection::Changed, &selection, [this] { ++changes; });
    }

    Selection selection;
    std::shared_ptr<studio::StudioShape> a = BoxShape({});
    std::shared_ptr<studio::StudioShape> b = BoxShape({});
    std::shared_ptr<studio::StudioShape> c = BoxShape({});
    int changes = 0;
};

TEST_F(SelectionFixture, ChoiceReplacesShiftAddsCtrlTogglesNothingClears)
{
    selection.Choose({a}, Qt::NoModifier);
    selection.Choose({b}, Qt::NoModifier);
    EXPECT_EQ(selection.All(), Selection::Shapes{b});
    selection.Choose({a}, Qt::ControlModifier);
    selection.Choose({c}, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selection.All(), (Selection::Shapes{b, a, c}));
    selection.Choose({a, b}, Qt::ShiftModifier);
    EXPECT_EQ(selection.All(), (Selection::Shapes{c, a, b}));
    selection.Choose({a}, Qt::ControlModifier);
    EXPECT_EQ(selection.All(), (Selection::Shapes{c, b}));
    EXPECT_EQ(selection.Latest(), b);
    EXPECT_FALSE(selection.Contains(*a));
    selection.Choose({}, Qt::ControlModifier);
    selection.Choose({nullptr}, Qt::ShiftModifier);
    EXPECT_EQ(selection.All().size(), 2U);
    selection.Choose({nullptr}, Qt::NoModifier);
    EXPECT_TRUE(selection.All().empty());
    EXPECT_EQ(selection.Latest(), nullptr);
}

TEST_F(SelectionFixture, ChangedComesOncePerRealChange)
{
    selection.Set({a, nullptr, b, a});
    EXPECT_EQ(selection.All(), (Selection::Shapes{a, b}));
    EXPECT_EQ(changes, 1);
    selection.Set({a, b});
    selection.Choose({nullptr}, Qt::ControlModifier);
    EXPECT_EQ(changes, 1);
    selection.Set({b, a});  // another order: another shape is the latest one
    EXPECT_EQ(changes, 2);
    selection.Clear();
    selection.Clear();
    EXPECT_EQ(changes, 3);
}

TEST_F(SelectionFixture, SlotMayChangeTheSelectionAgain)
{
    QObject::connect(&selection, &Selection::Changed, &selection, [this] { selection.Set({c}); });
    selection.Choose({a}, Qt::NoModifier);
    EXPECT_EQ(selection.All(), Selection::Shapes{c});
    EXPECT_TRUE(selection.Contains(*c));
    EXPECT_FALSE(selection.Contains(*a));
}

}  // namespace
