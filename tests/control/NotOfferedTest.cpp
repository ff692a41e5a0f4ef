#include "tests/support/ControlRig.h"

#include <gtest/gtest.h>

namespace {

using namespace CorvexTest;
using CorvexMaterial::Status;

TEST(NotOffered, MembersSaySoRaiseNothingAndTouchNobody)
{
    ControlRig rig;
    rig.Start();
    auto& control = rig.Control();
    std::vector<float> values{1.0F};
    const Status statuses[] = {
        control.LoadTextureLibrary("Wood.cvt"),
        control.LoadMaterialLibrary("Wood.cvm"),
        control.put_stTextureLibraryFilename("Wood.cvt"),
        control.GetPluginParameterValues(values),
        control.DisplayPluginParameters({1.0F, 2.0F}),
        control.ClearPluginList(),
        control.AddToPluginList("Marble"),
    };
    for (const Status status : statuses) {
        EXPECT_EQ(status, Status::NotAvailable);
    }
    EXPECT_TRUE(rig.log.Calls().empty());
    EXPECT_EQ(values, std::vector<float>{1.0F});
    std::string library;
    EXPECT_EQ(control.get_stTextureLibraryFilename(library), Status::Success);
    EXPECT_EQ(library, "Gems.cvt");
}

}  // namespace
