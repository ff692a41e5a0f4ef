#include "ControlRig.h"

namespace {

using namespace CorvexTest;
using CorvexMaterial::IMaterial;
using CorvexMaterial::Status;

constexpr std::int32_t kTwipsPerPixel = 15;

/// What the host's height must not let the user change.
constexpr const char* kDictated[] = {"chkTextureLibrary", "cmdMaterialLibraryLess",
                                     "cmdMaterialLibraryMore", "cmdTextureLibraryLess",
                                     "cmdTextureLibraryMore"};

class Layout : public WithStartedControl {
protected:
    std::pair<std::string, std::string> SavedRows()
    {
        EXPECT_EQ(rig.Control().SaveStatus(), Status::Success);
        const auto& store = rig.platform.settings;
        return {store.Get("TextureRows").value_or(""), store.Get("MaterialRows").value_or("")};
    }
    /// What the whole panel asks for.
    std::int32_t HeightTwips()
    {
        return rig.Find<QWidget>("picMaterial").sizeHint().height() * kTwipsPerPixel;
    }
    void ExpectDictated(bool dictated)
    {
        for (const char* name : kDictated) {
            EXPECT_EQ(rig.Find<QWidget>(name).isEnabled(), !dictated) << name;
        }
        EXPECT_TRUE(rig.Tick("chkMaterialLibrary").isEnabled());
    }
};

using Rows = std::pair<std::string, std::string>;

TEST_F(Layout, OfferedHeightIsSharedAndFitsAlsoWhenItIsOfferedAgain)
{
    EXPECT_EQ(rig.Control().SetMaxStatus(0), Status::Success);
    EXPECT_EQ(SavedRows(), Rows("1", "1"));
    const std::int32_t offered = HeightTwips() - 990 - 1020 + 7035;
    for (int repeat = 0; repeat < 2; ++repeat) {
        EXPECT_EQ(rig.Control().SetMaxStatus(offered), Status::Success);
        EXPECT_EQ(SavedRows(), Rows("4", "3"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return HeightTwips() <= offered; }, 1000));
    }
}

TEST_F(Layout, OfferedHeightOpensAllAndLocksUntilTheSavedLayoutReturns)
{
    rig.Control().put_bMaterialPanel(false);
    rig.Control().SetMaxStatus(20000);
    EXPECT_TRUE(rig.Read(&IMaterial::get_bMaterialPanel));
    EXPECT_TRUE(rig.Read(&IMaterial::get_bTexturePanel));
    EXPECT_TRUE(rig.Read(&IMaterial::get_bMaterialLibraryPanel));
    ExpectDictated(true);
    EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 0U);
    EXPECT_EQ(rig.log.CountOf("Event.MaterialLibraryExpanded"), 0U);
    EXPECT_EQ(rig.Changes(), 0U);

    rig.Control().LoadSavedStatus();
    ExpectDictated(false);
    EXPECT_FALSE(rig.Read(&IMaterial::get_bTexturePanel));
}

TEST_F(Layout, SavedLayoutComesBackAndIsWrittenInItsOrder)
{
    rig.Terminate();
    for (const auto& [key, value] : {std::pair{"TextureRows", "3"},
                                     {"MaterialRows", "2"},
                                     {"TextureLibraryPanel", "True"},
                                     {"MaterialPanel", "1"}}) {
        rig.platform.settings.Put(key, value);
    }
    rig.Create();
    for (int load = 0; load < 2; ++load) {
        rig.Control().LoadSavedStatus();
        EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 1U);
        EXPECT_EQ(rig.log.CountOf("Event.MaterialLibraryExpanded"), 1U) << "for its rows";
    }
    rig.platform.settings.Put("TextureRows", "4");
    rig.Control().LoadSavedStatus();
    EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 2U);
    EXPECT_FALSE(rig.Tick("chkMaterialLibrary").isChecked());
    EXPECT_TRUE(rig.Tick("chkTextureLibrary").isChecked());
    EXPECT_TRUE(rig.Tick("chkMaterialPanel").isChecked());
    EXPECT_TRUE(rig.Find<QWidget>("txtAmbient").isVisible());
    EXPECT_EQ(rig.Find<QWidget>("dfeTextureLibrary").height(), 4 * 990 / kTwipsPerPixel);
    EXPECT_FALSE(rig.Find<QWidget>("dfeMaterialLibrary").isVisible());

    rig.log.Clear();
    rig.Control().SaveStatus();
    EXPECT_EQ(rig.log.DetailsOf("Store.Write"),
              (Texts{"Application/MaterialPanel=True", "Application/TextureLibraryPanel=True",
                     "Application/TextureRows=4", "Application/MaterialLibraryPanel=False",
                     "Application/MaterialRows=2"}));
    EXPECT_EQ(rig.log.CountOf("Store.Flush"), 1U);
}

TEST_F(Layout, MoreAndLessChangeRowsTellTheHostAndMayHideTheBrowser)
{
    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
    rig.log.Clear();
    rig.Press("cmdMaterialLibraryMore");
    rig.Press("cmdTextureLibraryLess");
    EXPECT_EQ(rig.log.CountOf("Event.MaterialLibraryExpanded"), 1U);
    EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 1U);
    EXPECT_EQ(rig.Changes(), 0U);
    EXPECT_FALSE(rig.Find<QWidget>("dfeTextureLibrary").isVisible());
    rig.Press("cmdTextureLibraryLess");
    for (int press = 0; press < 3; ++press) {
        rig.Press("cmdMaterialLibraryLess");
    }
    EXPECT_EQ(SavedRows(), Rows("-1", "1"));
    rig.Press("cmdTextureLibraryMore");
    rig.Press("cmdTextureLibraryMore");
    EXPECT_TRUE(rig.Find<QWidget>("dfeTextureLibrary").isVisible());
    EXPECT_EQ(SavedRows(), Rows("1", "1"));
}

TEST_F(Layout, FoldingByClickAndByPropertyTellsTheHostOnce)
{
    rig.Press("chkTextureLibrary");
    rig.Press("chkMaterialLibrary");
    EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 1U);
    EXPECT_EQ(rig.log.CountOf("Event.MaterialLibraryExpanded"), 1U);
    EXPECT_TRUE(rig.Read(&IMaterial::get_bTexturePanel));
    EXPECT_TRUE(rig.Find<QWidget>("dfeTextureLibrary").isVisible());

    EXPECT_EQ(rig.Control().put_bTexturePanel(false), Status::Success);
    EXPECT_EQ(rig.Control().put_bMaterialLibraryPanel(false), Status::Success);
    EXPECT_EQ(rig.log.CountOf("Event.TextureLibraryExpanded"), 2U);
    EXPECT_EQ(rig.log.CountOf("Event.MaterialLibraryExpanded"), 2U);
    EXPECT_FALSE(rig.Tick("chkTextureLibrary").isChecked());

    rig.Press("chkMaterialPanel");
    EXPECT_FALSE(rig.Read(&IMaterial::get_bMaterialPanel));
    EXPECT_FALSE(rig.Find<QWidget>("txtAmbient").isVisible());
    EXPECT_EQ(rig.Changes(), 0U);
}

}  // namespace
