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
    const Status statuses[] = {
        control.LoadTextureLibrary("Wood.cvt"),
        control.LoadMaterialLibrary("Wood.cvm"),
        control.put_stTextureLibraryFilename("Wood.cvt"),
    };
    for (const Status status : statuses) {
        EXPECT_EQ(status, Status::NotAvailable);
    }
    EXPECT_TRUE(rig.log.Calls().empty());
    std::string library;
    EXPECT_EQ(control.get_stTextureLibraryFilename(library), Status::Success);
    EXPECT_EQ(library, "Gems.cvt");
}

}  // namespace
