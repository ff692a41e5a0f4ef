#include "PluginRig.h"

namespace CorvexTest {
namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;
using testing::AnyOf;
using testing::HasSubstr;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// What no editor can show, and every way not to answer.
std::vector<std::function<Parameters()>> Faults()
{
    std::vector<std::function<Parameters()>> faults{
        [] { return Parameters{Slider(kNaN, 5, 1)}; },
        [] {
            return Parameters{Slider(0, 5, 1), NumberBox(6, 5, 1)};
        }};
    for (const Fault fault : kFaults) {
        faults.push_back([fault]() -> Parameters { Throw(fault, "a plug-in"); });
    }
    return faults;
}

TEST(PluginFault, ARefusedPluginIsNamedAndTheFormerOneStays)
{
    for (const auto& fault : Faults()) {
        PluginRig rig;
        rig.Pick("First");
        rig.second->answer = fault;
        const auto before = rig.VisibleRows();
        rig.Pick("Second");
        ASSERT_FALSE(rig.platform.prompts.shown.empty());
        // Out of memory has a text of its own, which names nobody.
        EXPECT_THAT(rig.platform.prompts.shown[0].text,
                    AnyOf(HasSubstr("Second"), HasSubstr("memory")));
        EXPECT_EQ(rig.chosen, 1);
        EXPECT_EQ(rig.panel.SelectedName(), "First");
        EXPECT_EQ(rig.Find<QComboBox>("cboPlugin").currentText(), "First");
        EXPECT_EQ(rig.VisibleRows(), before);
        EXPECT_EQ(rig.Read()[2], 7.0F);
    }
}

TEST(PluginFault, ManyParametersShowTenAndFailWhenTheirValuesAreAskedOrGiven)
{
    PluginRig rig;
    for (const std::size_t count : {std::size_t{11}, std::size_t{1'000'000}}) {
        rig.second->answer = [count] { return std::vector(count, Slider(0, 9, 3)); };
        rig.panel.SelectName("");
        rig.Pick("Second");
        EXPECT_THROW(rig.panel.Display(std::vector(count, 4.0F)), Error);
        EXPECT_NO_THROW(rig.panel.Restore("Second", {})) << "a material is shown whole";
        EXPECT_TRUE(rig.Find<QWidget>("sldParameter_9").isVisible());
        std::vector<float> values;
        try {
            rig.panel.ReadValues(values);
            ADD_FAILURE() << "eleven do not fit";
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), Status::SubscriptOutOfRange);
            EXPECT_THAT(error.what(), HasSubstr(std::to_string(count)));
        }
        EXPECT_EQ(values, std::vector<float>(10, 3.0F));
    }
    rig.Pick("First");
    EXPECT_EQ(rig.Read()[2], 7.0F) << "the panel stays usable";
}

TEST(PluginFault, ValuesThatDoNotFitLeaveTheRowsAsTheyWere)
{
    PluginRig rig;
    rig.Pick("First");
    const auto before = rig.Read();
    const std::vector<std::vector<float>> bad{{1, 0, 2}, {}, {0, 0, kNaN, 0, 0, 0, 0}};
    for (const auto& values : bad) {
        EXPECT_THROW(rig.panel.Display(values), Error);
        EXPECT_EQ(rig.Read(), before);
    }
}

TEST(PluginFault, AListLongerThanTheHostsTableIsRefused)
{
    PluginRig rig;
    rig.panel.Add("Third");
    rig.Pick("Third");
    EXPECT_THAT(rig.platform.prompts.shown.at(0).text, HasSubstr("Third"));
    EXPECT_EQ(rig.panel.SelectedName(), "");
    rig.host.plugins.records[1].plugin = nullptr;
    rig.Pick("First");
    EXPECT_EQ(rig.panel.SelectedName(), "");
}

}  // namespace
}  // namespace CorvexTest
