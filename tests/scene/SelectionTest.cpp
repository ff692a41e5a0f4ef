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

TEST_F(SelectionFixture, ClickReplacesCtrlTogglesNothingClears)
{
    selection.Click(a, Qt::NoModifier);
    selection.Click(b, Qt::NoModifier);
    EXPECT_EQ(selection.All(), Selection::Shapes{b});
    selection.Click(a, Qt::ControlModifier);
    selection.Click(c, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(selection.All(), (Selection::Shapes{b, a, c}));
    selection.Click(a, Qt::ControlModifier);
    EXPECT_EQ(selection.All(), (Selection::Shapes{b, c}));
    EXPECT_EQ(selection.Latest(), c);
    EXPECT_FALSE(selection.Contains(*a));
    selection.Click(nullptr, Qt::ControlModifier);
    EXPECT_EQ(selection.All().size(), 2U);
    selection.Click(nullptr, Qt::NoModifier);
    EXPECT_TRUE(selection.All().empty());
    EXPECT_EQ(selection.Latest(), nullptr);
}

TEST_F(SelectionFixture, ChangedComesOncePerRealChange)
{
    selection.Set({a, nullptr, b, a});
    EXPECT_EQ(selection.All(), (Selection::Shapes{a, b}));
    EXPECT_EQ(changes, 1);
    selection.Set({a, b});
    selection.Click(nullptr, Qt::ControlModifier);
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
    selection.Click(a, Qt::NoModifier);
    EXPECT_EQ(selection.All(), Selection::Shapes{c});
    EXPECT_TRUE(selection.Contains(*c));
    EXPECT_FALSE(selection.Contains(*a));
}

}  // namespace
