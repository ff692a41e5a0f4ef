#include "PluginParameters.h"

#include <CorvexMaterial/Status.h>

namespace CorvexMaterial {
namespace {

using CorvexDB::ParameterKind;
using CorvexDB::PluginParameter;

PluginParameter SliderOf(float minimum, float maximum, float step)
{
    return {{}, ParameterKind::Slider, minimum, maximum, 0, {}, 0, 0, 0, step};
}

TEST(SliderArithmetic, FollowsRangeAndStep)
{
    struct Row {
        float minimum, maximum, step;
        int tickFrequency, largeChange;
    };
    const Row rows[] = {{-5, 5, 0, 5, 1},          // 5 / 4 = 1.25
                        {0, 20, 0, 1, 5},          // at most 20 steps
                        {0, 21, 0, 2, 5},          // 2.1, 5.25
                        {0, 25, 0, 2, 6},          // 2.5 goes to the even 2, 6.25
                        {0, 35, 0, 4, 9},          // 3.5 goes to the even 4, 8.75
                        {0, 2, 0, 1, 1},           // 0.5 gives 0, and at least 1
                        {0, 100, 12.5F, 10, 12},   // the step itself, half to even
                        {0, 0, 0, 1, 1},           // an empty range still has a tick
                        {-9.6F, 10.4F, 0, 10, 2},  // rounded first, then symmetric; 2.5
                        {-2147483648.0F, 2147483008.0F, 0, 429496666, 536870752}};
    for (const Row& row : rows) {
        const SliderSetting setting = SliderSettingOf(SliderOf(row.minimum, row.maximum, row.step));
        EXPECT_EQ(setting.tickFrequency, row.tickFrequency) << row.minimum << ' ' << row.maximum;
        EXPECT_EQ(setting.largeChange, row.largeChange) << row.minimum << ' ' << row.maximum;
    }
}

TEST(PackedColour, KeepsGreenAndBlueAndRedWithinOneStep)
{
    EXPECT_EQ(PackColour(kWhite), 8388607.0F);
    EXPECT_EQ(PackColour(0), 0.0F);
    EXPECT_EQ(PackColour(MakeColour({128, 128, 128})), 64 * 65536 + 128 * 256 + 128);
    for (int byte = 0; byte < 256; ++byte) {
        const ColourBytes given{byte, 255 - byte, byte ^ 0x55};
        const ColourBytes back = BytesOf(UnpackColour(PackColour(MakeColour(given))));
        EXPECT_NEAR(back.red, given.red, 1);
        EXPECT_EQ(back.green, given.green);
        EXPECT_EQ(back.blue, given.blue);
    }
    EXPECT_EQ(UnpackColour(8388607.0F), kWhite);
    EXPECT_EQ(UnpackColour(1e30F), kWhite);
    EXPECT_EQ(UnpackColour(-3.0F), 0);
}

TEST(ParameterLists, TheSimpleShapeHasNoSphere)
{
    PluginParameter parameter;
    parameter.choices = {"ignored"};
    parameter.kind = ParameterKind::Shape;
    EXPECT_EQ(ChoicesOf(parameter), (std::vector<std::string>{"Box", "Cylinder", "Sphere"}));
    parameter.kind = ParameterKind::SimpleShape;
    EXPECT_EQ(ChoicesOf(parameter), (std::vector<std::string>{"Box", "Cylinder"}));
}

TEST(ParameterLists, PositionIsRoundedHalfToEvenAndStaysInTheList)
{
    EXPECT_EQ(ListPositionOf(0.5F, 4), 0);
    EXPECT_EQ(ListPositionOf(2.5F, 4), 2);
    EXPECT_EQ(ListPositionOf(1.5F, 4), 2);
    EXPECT_EQ(ListPositionOf(99.0F, 4), 3);
    EXPECT_EQ(ListPositionOf(-1.0F, 4), 0);
}

TEST(ParameterCheck, RefusesWhatNoEditorCanShow)
{
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    PluginParameter noChoices;
    noChoices.kind = ParameterKind::List;
    PluginParameter noDefault = SliderOf(0, 1, 0);
    noDefault.defaultValue = kNaN;
    for (const PluginParameter& bad :
         {SliderOf(kNaN, 1, 0), SliderOf(0, kNaN, 0), SliderOf(0, 1, kNaN), SliderOf(2, 1, 0),
          noChoices, noDefault, SliderOf(0, 1e20F, 0)}) {
        EXPECT_THROW(CheckParameter(bad), Error);
    }
    EXPECT_NO_THROW(CheckParameter(SliderOf(1, 1, 0)));
}

}  // namespace
}  // namespace CorvexMaterial
